// Identification block of an auxiliary EEPROM.
#include "HwDatablockMiscIdent.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"
#include "blocks/ident/IdentFields.h"

namespace Tupsim {

using namespace identfields;

HwDatablockMiscIdent::HwDatablockMiscIdent(HwEVariantEepromDatablock id)
    : HwDatablock(false), miscBlockId(id) {
    image() = blockfields::freshImage(id, ImageSize);
}

HwSDatablockMiscIdent* HwDatablockMiscIdent::getBlock() {
    return blockfields::recordView<HwSDatablockMiscIdent>(image());
}

int HwDatablockMiscIdent::setBlock(const HwSDatablockMiscIdent* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockMiscIdent"))
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockMiscIdent::swapBlock(const HwSDatablockMiscIdent* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        copyRecord(*this, image(), raw, ImageSize);
}

std::ostream& HwDatablockMiscIdent::printToStream(std::ostream& out) {
    const unsigned int id = getId();
    out << "ID:           "
        << (id == VARIANT_STREAM_OPT_IDENT   ? "STREAM_OPT_IDENT"
            : id == VARIANT_STREAM_AUX_IDENT ? "STREAM_AUX_IDENT"
                                             : "")
        << "\n";
    records::printFields(out, miscIdentSchema(), image(), id, LabelWidth);
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockMiscIdent::recordSchema() {
    return miscIdentSchema();
}

unsigned int HwDatablockMiscIdent::getEepromSize() {
    return bytes::getLE<quint32>(image(), EepromSize);
}

unsigned int HwDatablockMiscIdent::getPartNumber() {
    return bytes::getLE<quint32>(image(), PartNumber);
}

unsigned char HwDatablockMiscIdent::getVariant() {
    return bytes::getLE<quint8>(image(), Variant);
}

unsigned char HwDatablockMiscIdent::getHardwareCode() {
    return bytes::getLE<quint8>(image(), HardwareCode);
}

unsigned short HwDatablockMiscIdent::getProductIndex() {
    return bytes::getLE<quint16>(image(), ProductIndex);
}

unsigned int HwDatablockMiscIdent::getSerialNumber() {
    return bytes::getLE<quint32>(image(), SerialNumber);
}

unsigned short HwDatablockMiscIdent::getProductDate() {
    return bytes::getLE<quint16>(image(), ProductDate);
}

unsigned short HwDatablockMiscIdent::getReadCode() {
    return bytes::getLE<quint16>(image(), ReadCode);
}

unsigned short HwDatablockMiscIdent::getTestInstruction() {
    return bytes::getLE<quint16>(image(), TestInstruction);
}

QString HwDatablockMiscIdent::getName() {
    return name(image());
}

} // namespace Tupsim
