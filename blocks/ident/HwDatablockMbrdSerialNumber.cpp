// Mainboard block holding the board serial number.
#include "HwDatablockMbrdSerialNumber.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int { SerialOffset = 8, ImageSize = 12 };

const records::FieldRow kRows[] = {
    {"SN", SerialOffset, sizeof(HwSDatablockMbrdSerialNumber::serialNumber), records::Codec::Number,
     records::through<&HwDatablockMbrdSerialNumber::setSerialNumber>},
};
} // namespace

HwDatablockMbrdSerialNumber::HwDatablockMbrdSerialNumber() : HwDatablock(false) {
    image() = blockfields::freshImage(12000, ImageSize);
}

HwSDatablockMbrdSerialNumber* HwDatablockMbrdSerialNumber::getBlock() {
    return blockfields::recordView<HwSDatablockMbrdSerialNumber>(image());
}

int HwDatablockMbrdSerialNumber::setBlock(const HwSDatablockMbrdSerialNumber* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record,
                                   "   HwSDatablockMbrdSerialNumber"))
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockMbrdSerialNumber::swapBlock(const HwSDatablockMbrdSerialNumber* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, ImageSize, 0); // alignment 0 whatever the record says
    setSerialNumber(blockfields::recordField<quint32>(*this, raw, SerialOffset));
    blockfields::keepRecordChecksum(*this, raw);
}

void HwDatablockMbrdSerialNumber::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockMbrdSerialNumber>(*this);
}

std::ostream& HwDatablockMbrdSerialNumber::printToStream(std::ostream& out) {
    out << "# Das ist die Seriennummer des Qvx`s\n";
    out << "ID:              SERIAL_NUMBER\n";
    out << "SN:              " << blockfields::format("%u", getSerialNumber()) << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockMbrdSerialNumber::recordSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockMbrdSerialNumber>(kRows, ImageSize);
    return schema;
}

unsigned int HwDatablockMbrdSerialNumber::getSerialNumber() {
    return bytes::getLE<quint32>(image(), SerialOffset);
}

void HwDatablockMbrdSerialNumber::setSerialNumber(unsigned int serialNumber) {
    if (blockfields::store<quint32>(image(), SerialOffset, serialNumber))
        refreshChecksum();
}

} // namespace Tupsim
