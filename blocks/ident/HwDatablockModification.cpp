// List of the modifications applied to a module: ten service codes.
#include "HwDatablockModification.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int { FirstEntry = 8, EntryCount = 10, ImageSize = 28 };

quint16 entryOf(const QByteArray& image, unsigned int index) {
    return index < EntryCount ? bytes::getLE<quint16>(image, FirstEntry + 2 * index) : 0;
}

void setCode(HwDatablock& block, const records::Value& value, unsigned index) {
    static_cast<HwDatablockModification&>(block).setServiceCode(
        static_cast<unsigned char>(index), static_cast<unsigned short>(value.number));
}

// Ten codes, one line each under the same label: SERVICECODE1 to SERVICECODE10.
const records::FieldRow kRows[] = {
    {"SERVICECODE", FirstEntry, sizeof(quint16), records::Codec::Number, &setCode, EntryCount,
     records::Spread::Lines},
};
} // namespace

HwDatablockModification::HwDatablockModification()
    : HwDatablockModification("MODIFICATION_100", "   HwDatablockModification") {}

HwDatablockModification::HwDatablockModification(const char* name, const char* text)
    : HwDatablock(false), listName(name), rejectText(text) {
    image() = blockfields::freshImage(100, ImageSize);
}

HwSDatablockModification* HwDatablockModification::getBlock() {
    return blockfields::recordView<HwSDatablockModification>(image());
}

int HwDatablockModification::setBlock(const HwSDatablockModification* record) {
    return importRecord(record);
}

void HwDatablockModification::swapBlock(const HwSDatablockModification* record) {
    copyRecord(record, false);
}

int HwDatablockModification::importRecord(const void* record) {
    if (!blockfields::acceptRecord(*this, record, ImageSize, rejectText))
        return 1;
    copyRecord(record, true);
    return 0;
}

void HwDatablockModification::copyRecord(const void* record, bool keepAlignment) {
    const QByteArray raw = blockfields::recordCopy(record, ImageSize);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, ImageSize,
                              keepAlignment ? bytes::getLE<quint16>(raw, 6) : 0);
    // Entry by entry, each with its checksum refresh.
    for (unsigned char i = 0; i < EntryCount; ++i)
        setServiceCode(i, i < EntryCount ? blockfields::recordField<quint16>(
                                               *this, raw, FirstEntry + 2 * unsigned{i})
                                         : 0);
    blockfields::keepRecordChecksum(*this, raw);
}

void HwDatablockModification::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockModification>(*this);
}

std::ostream& HwDatablockModification::printToStream(std::ostream& out) {
    out << "# Das sind die Servicedaten Modification\n";
    out << "ID:              " << listName << "\n";
    for (unsigned int i = 0; i < EntryCount; ++i)
        out << "SERVICECODE:     " << blockfields::format("%u", unsigned{entryOf(image(), i)})
            << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockModification::recordSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockModification>(kRows, ImageSize);
    return schema;
}

unsigned short HwDatablockModification::getServiceCode(unsigned char index) {
    return entryOf(image(), index);
}

unsigned short HwDatablockModification::getAction(unsigned char index) {
    return entryOf(image(), index) >> 14;
}

unsigned short HwDatablockModification::getCircularNr(unsigned char index) {
    return entryOf(image(), index) & 0x3FFF;
}

void HwDatablockModification::setServiceCode(unsigned char index, unsigned short code) {
    if (index < EntryCount && blockfields::store<quint16>(image(), FirstEntry + 2 * index, code))
        refreshChecksum();
}

void HwDatablockModification::setAction(unsigned char index, unsigned short action) {
    const unsigned int word = entryOf(image(), index);
    setServiceCode(index, static_cast<unsigned short>((word & 0x3FFFu) | ((action & 0x3u) << 14)));
}

void HwDatablockModification::setCircularNr(unsigned char index, unsigned short circularNr) {
    const unsigned int word = entryOf(image(), index);
    setServiceCode(index, static_cast<unsigned short>((word & 0xC000u) | (circularNr & 0x3FFFu)));
}

} // namespace Tupsim
