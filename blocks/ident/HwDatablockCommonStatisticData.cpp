// Power-on and operating-time tallies of a module, and their backup copies.
#include "HwDatablockCommonStatisticData.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {

namespace {
enum : int { Length = 8, Data = 12, ImageSize = 524 };

const char* tallyName(unsigned int id) {
    switch (id) {
    case VARIANT_POWERON_COUNT:
        return "POWERON COUNT";
    case VARIANT_BACKUP_OF_POWERON_COUNT:
        return "BACKUP OF POWERON COUNT ";
    case VARIANT_OPERATING_TIME_COUNT:
        return "OPERATING TIME COUNT";
    case VARIANT_BACKUP_OF_OPERATING_TIME_COUNT:
        return "BACKUP OF OPERATING TIME COUNT";
    default:
        return "";
    }
}
} // namespace

HwDatablockCommonStatisticData::HwDatablockCommonStatisticData(HwEVariantEepromDatablock id)
    : HwDatablock(false), statisticId(id) {
    image() = blockfields::freshImage(id, ImageSize);
    bytes::putLE<quint32>(image(), Length, MaxDataLength);
}

HwSDatablockCommonStatisticData* HwDatablockCommonStatisticData::getBlock() {
    return blockfields::recordView<HwSDatablockCommonStatisticData>(image());
}

int HwDatablockCommonStatisticData::setBlock(const HwSDatablockCommonStatisticData* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return 1;
    setBlockId(bytes::getLE<quint16>(raw, 0));
    setAlignment(bytes::getLE<quint16>(raw, 6));
    setCommonStatisticData(reinterpret_cast<const unsigned char*>(raw.constData()) + Data,
                           blockfields::recordField<quint32>(*this, raw, Length));
    return 0;
}

void HwDatablockCommonStatisticData::swapBlock(const HwSDatablockCommonStatisticData* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, bytes::getLE<quint16>(raw, 2), 0);
    blockfields::keepRecordChecksum(*this, raw);
}

void HwDatablockCommonStatisticData::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockCommonStatisticData>(*this);
}

std::ostream& HwDatablockCommonStatisticData::printToStream(std::ostream& out) {
    out << "# Sonstige statistische Daten:\n";
    out << "ID: \t " << tallyName(getId()) << "\n";
    for (unsigned int i = 0; i < MaxDataLength; ++i)
        out << blockfields::format("%u: \t%u", i + 1,
                                   unsigned{bytes::getLE<quint8>(image(), Data + i)})
            << "\n";
    out << "\n";
    return out;
}

void HwDatablockCommonStatisticData::setCommonStatisticData(const unsigned char* data,
                                                            unsigned int length) {
    const unsigned int stored = std::min<unsigned int>(length, MaxDataLength);
    if (data != nullptr && blockfields::store<quint32>(image(), Length, stored))
        bytes::copyIn(image(), Data, data, stored);
}

unsigned char* HwDatablockCommonStatisticData::getCommonStatisticData(unsigned int* length) {
    return blockfields::areaWithLength(image(), Data, MaxDataLength, Length, length);
}

unsigned int HwDatablockCommonStatisticData::getCommonStatisticDataLength() {
    return bytes::getLE<quint32>(image(), Length);
}

} // namespace Tupsim
