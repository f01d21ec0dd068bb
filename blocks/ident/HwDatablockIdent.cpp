// Identification block that opens every module EEPROM.
#include "HwDatablockIdent.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"
#include "blocks/ident/IdentFields.h"

namespace Tupsim {

using namespace identfields;

HwDatablockIdent::HwDatablockIdent() : HwDatablock(false) {
    image() = blockfields::freshImage(2, ImageSize);
}

HwSDatablockIdent* HwDatablockIdent::getBlock() {
    return blockfields::recordView<HwSDatablockIdent>(image());
}

int HwDatablockIdent::setBlock(const HwSDatablockIdent* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockIdent"))
        return 1;
    copyRecord(*this, image(), blockfields::recordCopy(record, sizeof *record), ImageSize);
    return 0;
}

void HwDatablockIdent::swapBlock(const HwSDatablockIdent* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        copyRecord(*this, image(), raw, bytes::getLE<quint16>(raw, 2));
}

void HwDatablockIdent::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockIdent>(*this);
}

std::ostream& HwDatablockIdent::printToStream(std::ostream& out) {
    out << "# Das sind die Kopfdaten\n";
    out << "ID:              IDENT_" << blockfields::format("%u", getId()) << "\n";
    records::printFields(out, identSchema(), image(), getId(), LabelWidth);
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockIdent::recordSchema() {
    return identSchema();
}

unsigned int HwDatablockIdent::getEepromSize() {
    return bytes::getLE<quint32>(image(), EepromSize);
}

unsigned int HwDatablockIdent::getPartNumber() {
    return bytes::getLE<quint32>(image(), PartNumber);
}

unsigned char HwDatablockIdent::getVariant() {
    return bytes::getLE<quint8>(image(), Variant);
}

unsigned char HwDatablockIdent::getHardwareCode() {
    return bytes::getLE<quint8>(image(), HardwareCode);
}

unsigned short HwDatablockIdent::getProductIndex() {
    return bytes::getLE<quint16>(image(), ProductIndex);
}

unsigned int HwDatablockIdent::getSerialNumber() {
    return bytes::getLE<quint32>(image(), SerialNumber);
}

unsigned short HwDatablockIdent::getProductDate() {
    return bytes::getLE<quint16>(image(), ProductDate);
}

unsigned short HwDatablockIdent::getReadCode() {
    return bytes::getLE<quint16>(image(), ReadCode);
}

unsigned short HwDatablockIdent::getTestInstruction() {
    return bytes::getLE<quint16>(image(), TestInstruction);
}

QString HwDatablockIdent::getName() {
    return name(image());
}

void HwDatablockIdent::setEepromSize(unsigned int size) {
    if (blockfields::store<quint32>(image(), EepromSize, size))
        refreshChecksum();
}

void HwDatablockIdent::setPartNumber(unsigned int partNumber) {
    if (blockfields::store<quint32>(image(), PartNumber, partNumber))
        refreshChecksum();
}

void HwDatablockIdent::setVariant(unsigned char variant) {
    if (blockfields::store<quint8>(image(), Variant, variant))
        refreshChecksum();
}

void HwDatablockIdent::setHardwareCode(unsigned char code) {
    if (blockfields::store<quint8>(image(), HardwareCode, code))
        refreshChecksum();
}

void HwDatablockIdent::setProductIndex(unsigned short index) {
    if (blockfields::store<quint16>(image(), ProductIndex, index))
        refreshChecksum();
}

void HwDatablockIdent::setSerialNumber(unsigned int serialNumber) {
    if (blockfields::store<quint32>(image(), SerialNumber, serialNumber))
        refreshChecksum();
}

void HwDatablockIdent::setProductDate(unsigned short date) {
    if (blockfields::store<quint16>(image(), ProductDate, date))
        refreshChecksum();
}

void HwDatablockIdent::setReadCode(unsigned short code) {
    if (blockfields::store<quint16>(image(), ReadCode, code))
        refreshChecksum();
}

void HwDatablockIdent::setTestInstruction(unsigned short issue) {
    if (blockfields::store<quint16>(image(), TestInstruction, issue))
        refreshChecksum();
}

void HwDatablockIdent::setName(const QString& text) {
    const QByteArray local = text.toLocal8Bit();
    if (blockfields::storeText(image(), Name, NameWidth, local.constData(), local.size()))
        refreshChecksum();
}

} // namespace Tupsim
