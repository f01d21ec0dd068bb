// Mainboard time-monitoring record.
#include "HwDatablockMbrdTimeMonitoringData.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {

namespace {
enum : int { Date = 8, DateWidth = 32, Length = 40, Data = 44, DataWidth = 128, ImageSize = 172 };
}

HwDatablockMbrdTimeMonitoringData::HwDatablockMbrdTimeMonitoringData() : HwDatablock(false) {
    image() = blockfields::freshImage(12008, ImageSize);
    image().replace(Data, DataWidth, QByteArray(DataWidth, '\xFF'));
}

HwSDatablockMbrdTimeMonitoringDataEx* HwDatablockMbrdTimeMonitoringData::getBlock() {
    return blockfields::recordView<HwSDatablockMbrdTimeMonitoringDataEx>(image());
}

int HwDatablockMbrdTimeMonitoringData::setBlock(
    const HwSDatablockMbrdTimeMonitoringDataEx* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record,
                                   "   HwSDatablockMbrdTimeMonitoringData", 1040000, 12008))
        return 1040000;
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    copyRecord(raw, bytes::getLE<quint16>(raw, 6));
    return 0;
}

void HwDatablockMbrdTimeMonitoringData::swapBlock(
    const HwSDatablockMbrdTimeMonitoringDataEx* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        copyRecord(raw, 0);
}

void HwDatablockMbrdTimeMonitoringData::copyRecord(const QByteArray& record,
                                                   unsigned short alignment) {
    blockfields::importHeader(*this, record, bytes::getLE<quint16>(record, 2), alignment);
    setDate(record.constData() + Date);
    setTimeMonitoringData(reinterpret_cast<const unsigned char*>(record.constData()) + Data,
                          blockfields::recordField<quint32>(*this, record, Length));
    blockfields::keepRecordChecksum(*this, record);
}

std::ostream& HwDatablockMbrdTimeMonitoringData::printToStream(std::ostream& out) {
    return out;
}

QString HwDatablockMbrdTimeMonitoringData::getDate() {
    const std::string raw = blockfields::fieldText(image(), Date, DateWidth);
    return QString::fromLocal8Bit(raw.data(), static_cast<int>(raw.size()));
}

void HwDatablockMbrdTimeMonitoringData::setDate(const char* date) {
    if (date == nullptr)
        return;
    // The text may come from a record field without a NUL: look no further than the field.
    int length = 0;
    while (length < DateWidth && date[length] != '\0')
        ++length;
    if (length >= DateWidth)
        return;
    if (blockfields::storeText(image(), Date, DateWidth, date, length))
        refreshChecksum();
}

void HwDatablockMbrdTimeMonitoringData::setTimeMonitoringData(const unsigned char* data,
                                                              unsigned int length) {
    if (data == nullptr || !bytes::fits(static_cast<std::uint64_t>(imageLength()), Data, DataWidth))
        return;
    blockfields::store<quint32>(image(), Length, length);
    image().replace(Data, DataWidth, QByteArray(DataWidth, '\xFF'));
    bytes::copyIn(image(), Data, data, std::min<unsigned int>(length, DataWidth));
    refreshChecksum();
}

unsigned char* HwDatablockMbrdTimeMonitoringData::getTimeMonitoringData(unsigned int* length) {
    return blockfields::areaWithLength(image(), Data, DataWidth, Length, length);
}

unsigned int HwDatablockMbrdTimeMonitoringData::getTimeMonitoringDataLength() {
    return bytes::getLE<quint32>(image(), Length);
}

} // namespace Tupsim
