// The self-describing block: header fields for both layouts, element types and checksums.
#include "HwDatablock2Edition.h"

#include "core/ElementTypes.h"
#include "core/HwBytes.h"
#include "directory/ElementText.h"
#include "directory/OldStyleConversion.h"
#include "directory/SelfDescribingLayout.h"

#include <algorithm>
#include <cstring>

namespace Tupsim {

HwDatablock2Edition::HwDatablock2Edition() : HwDatablock(true) {
    oldstyle::ensureConverters(); // its conversion is the directory's generic pass
    image().fill('\0', 12);
    bytes::putLE<quint16>(image(), 2, 12);
}

HwDatablock2Edition::~HwDatablock2Edition() = default;

unsigned short HwDatablock2Edition::computeChecksum() {
    return HwDatablock::computeChecksum();
}

unsigned int HwDatablock2Edition::getId() {
    return HwDatablock::getId();
}

unsigned int HwDatablock2Edition::getEepromSector() {
    return HwDatablock::getEepromSector();
}

bool HwDatablock2Edition::setData(HwDatablock* other) {
    return HwDatablock::setData(other);
}

bool HwDatablock2Edition::setData(QByteArray newImage) {
    return HwDatablock::setData(newImage);
}

bool HwDatablock2Edition::setEepromAddress(unsigned int address) {
    return HwDatablock::setEepromAddress(address);
}

bool HwDatablock2Edition::setEepromSector(unsigned int sector) {
    return HwDatablock::setEepromSector(sector);
}

std::ostream& HwDatablock2Edition::printToStream2Edition(std::ostream& out, HwSDataBlockCfg cfg) {
    const HwSDataBlockCfg copy = cfg;
    return printDebugPageComplete(out, copy);
}

bool HwDatablock2Edition::hasLongHeader() {
    return getAlignment() == 0;
}

unsigned int HwDatablock2Edition::columnTypesOffset() {
    return hasLongHeader() ? layout::LongColumnTypesOffset : layout::ShortColumnTypesOffset;
}

unsigned int HwDatablock2Edition::dataAreaOffset() {
    const unsigned int end = columnTypesOffset() + getNumberOfColumns(0);
    return end + static_cast<unsigned int>(layout::padLength(end, layout::PadUnit));
}

unsigned short HwDatablock2Edition::getNumberOfRows(unsigned int) {
    return bytes::getBE<quint16>(image(), columnTypesOffset() - 6);
}

unsigned short HwDatablock2Edition::getNumberOfColumns(unsigned int) {
    return bytes::getBE<quint16>(image(), columnTypesOffset() - 4);
}

char* HwDatablock2Edition::getData(unsigned int) {
    return HwDatablock::getData();
}

unsigned short HwDatablock2Edition::getBlockSize(unsigned int) {
    // Readers walk this many bytes of getData(): a size field beyond the image must not count.
    const qsizetype size = HwDatablock::getBlockSize();
    return static_cast<unsigned short>(std::min(size, imageLength()));
}

unsigned int HwDatablock2Edition::computeChecksum32() {
    return HwDatablock::computeChecksum32();
}

float HwDatablock2Edition::getUpdateIndex() {
    const qint16 raw = bytes::getBE<qint16>(image(), columnTypesOffset() - 8);
    return static_cast<float>(static_cast<float>(raw) / 100.0);
}

bool HwDatablock2Edition::isListFormat() {
    return listFormat;
}

void HwDatablock2Edition::setListFormat(bool list) {
    listFormat = list;
}

ETypeId HwDatablock2Edition::getRowIdType() {
    return static_cast<ETypeId>(bytes::getLE<quint8>(image(), columnTypesOffset() - 2));
}

ETypeId HwDatablock2Edition::getColumnIdType() {
    return static_cast<ETypeId>(bytes::getLE<quint8>(image(), columnTypesOffset() - 1));
}

ETypeId HwDatablock2Edition::getColumnType(int column) {
    if (column < 0 || column >= getNumberOfColumns(0))
        return NONE;
    return static_cast<ETypeId>(
        bytes::getLE<quint8>(image(), columnTypesOffset() + static_cast<unsigned>(column)));
}

unsigned char HwDatablock2Edition::getSizeOfRowIdType() {
    return size_in_byte(getRowIdType());
}

unsigned char HwDatablock2Edition::getSizeOfColumnIdType() {
    return size_in_byte(getColumnIdType());
}

unsigned char HwDatablock2Edition::size_in_byte(ETypeId type) {
    return elements::of(type).printSize;
}

const char* HwDatablock2Edition::getTypeString(ETypeId type) {
    return elements::of(type).name;
}

bool HwDatablock2Edition::setChecksum32(unsigned int value) {
    if (imageLength() < 6)
        return true;
    // A short image takes the bytes of the field that it has room for.
    char field[4];
    bytes::putLE<quint32>(field, sizeof field, 0, value);
    for (int i = 0; i < 4 && 8 + i < imageLength(); ++i)
        image()[8 + i] = field[i];
    return true;
}

unsigned char* HwDatablock2Edition::printDataTypeToStream(std::ostream& out, unsigned char* p,
                                                          ETypeId type) {
    if (p == nullptr)
        return p;
    // A STRING has no size of its own: it reaches its terminating zero.
    const std::size_t width =
        type == STRING ? std::strlen(reinterpret_cast<const char*>(p)) : size_in_byte(type);
    printElement(out, p, width, type);
    return p + size_in_byte(type);
}

} // namespace Tupsim
