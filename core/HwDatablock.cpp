// The block record: header accessors, data transfers and the hexadecimal dump.
#include "HwDatablock.h"

#include "core/BlockHeader.h"
#include "core/HwBytes.h"

#include <climits>
#include <cstdio>

namespace Tupsim {

namespace {
// A fresh block: id 0, size 8, checksum 0, alignment 0.
const unsigned char kFreshHeader[8] = {0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00};
} // namespace

const char HwDatablock::eventCountIdentifier[17] = "-EVENT--COUNTER-";

HwDatablock::HwDatablock(bool stop)
    : stopConversionOnError(stop), eepromAddress(0), eepromSector(0),
      dataFormat(HwDataFormatReference), datablockClassTyp(HwDatablockClassNone), corrupt(false),
      data(reinterpret_cast<const char*>(kFreshHeader), sizeof kFreshHeader) {}

HwDatablock::HwDatablock(const HwDatablock& other) = default;
HwDatablock& HwDatablock::operator=(const HwDatablock& other) = default;
HwDatablock::~HwDatablock() = default;

unsigned int HwDatablock::getId() {
    return bytes::getLE<quint16>(data, header::IdOffset);
}

unsigned short HwDatablock::getBlockSize() {
    if (data.size() < 4)
        return 0;
    if (bytes::getLE<quint16>(data, header::IdOffset) == header::EndId)
        return header::EndSize;
    return bytes::getLE<quint16>(data, header::SizeOffset);
}

unsigned short HwDatablock::getChecksum() {
    return bytes::getLE<quint16>(data, header::ChecksumOffset);
}

unsigned short HwDatablock::getAlignment() {
    return bytes::getLE<quint16>(data, header::AlignmentOffset);
}

char* HwDatablock::getData() {
    return data.data();
}

QByteArray HwDatablock::getByteArrayData() {
    return data;
}

unsigned int HwDatablock::getEepromAddress() {
    return eepromAddress;
}

unsigned int HwDatablock::getEepromSector() {
    return eepromSector;
}

HwEDataFormatTyp HwDatablock::getDataFormatTyp() {
    return dataFormat;
}

HwEDatablockClassTyp HwDatablock::getDatablockClassTyp() {
    return datablockClassTyp;
}

unsigned int HwDatablock::getMagicIdentifierEventCount() {
    (void)getDataFormatTyp();
    const unsigned int magic =
        bytes::getLE<quint16>(eventCountIdentifier, sizeof eventCountIdentifier, 0);
    return (magic << 16) + getBlockSize();
}

bool HwDatablock::getStopConversionOnError() {
    return stopConversionOnError;
}

void HwDatablock::replaceDataInList(HwDatablock* other) {
    if (other)
        data = other->getByteArrayData();
}

void HwDatablock::refreshChecksum() {
    setChecksum(computeChecksum());
}

void HwDatablock::setBlockId(unsigned short id) {
    if (bytes::putLE<quint16>(data, header::IdOffset, id))
        refreshChecksum();
}

void HwDatablock::setBlockSize(unsigned short size) {
    if (bytes::putLE<quint16>(data, header::SizeOffset, size))
        refreshChecksum();
}

void HwDatablock::setBlockSizeWithoutCalcChecksumm(unsigned short size) {
    bytes::putLE<quint16>(data, header::SizeOffset, size);
}

void HwDatablock::setChecksum(unsigned short checksum) {
    bytes::putLE<quint16>(data, header::ChecksumOffset, checksum);
}

void HwDatablock::setAlignment(unsigned short alignment) {
    if (bytes::putLE<quint16>(data, header::AlignmentOffset, alignment))
        refreshChecksum();
}

bool HwDatablock::setData(const unsigned char* source, unsigned int length) {
    if (source == nullptr)
        return false;
    data = QByteArray(reinterpret_cast<const char*>(source), static_cast<int>(length));
    return verifyChecksum();
}

bool HwDatablock::setData(HwDatablock* other) {
    if (other == nullptr)
        return false;
    data = other->getByteArrayData();
    dataFormat = other->getDataFormatTyp();
    // The other block's check, not ours: callers rely on this.
    return other->verifyChecksum();
}

bool HwDatablock::setData(QByteArray newImage) {
    data = newImage;
    return verifyChecksum();
}

bool HwDatablock::setDataWithoutChecksumCheck(const unsigned char* source, unsigned int length) {
    if (source != nullptr)
        data = QByteArray(reinterpret_cast<const char*>(source), static_cast<int>(length));
    return true;
}

bool HwDatablock::setDataWithoutChecksumCheck(HwDatablock* other) {
    if (other == nullptr)
        return false;
    data = other->getByteArrayData();
    dataFormat = other->getDataFormatTyp();
    return true;
}

bool HwDatablock::setHwDatablockFirmwareConform(HwDatablock* source) {
    if (source == nullptr)
        return false;
    if (source->getDataFormatTyp() != HwDataFormatReference) {
        const unsigned short id = static_cast<unsigned short>(source->getId());
        setDataWithoutChecksumCheck(source);
        swapDataTo(HwDataFormatReference, id, source);
        source->setDataFormatTyp(HwDataFormatReference);
    }
    (void)setData(source);
    return false; // always false: firmware callers test nothing else
}

bool HwDatablock::setEepromAddress(unsigned int address) {
    eepromAddress = address;
    return true;
}

bool HwDatablock::setEepromSector(unsigned int sector) {
    eepromSector = sector;
    return true;
}

bool HwDatablock::setDataFormatTyp(HwEDataFormatTyp format) {
    dataFormat = format;
    return true;
}

bool HwDatablock::setDatablockClassTyp(HwEDatablockClassTyp type) {
    datablockClassTyp = type;
    return true;
}

void HwDatablock::resizeData(unsigned int length) {
    // Bounded by what a QByteArray can hold; larger requests are ignored.
    if (length <= static_cast<unsigned int>(INT_MAX - 64))
        data.resize(static_cast<int>(length));
}

std::ostream& HwDatablock::printToStream(std::ostream& out) {
    out << std::endl;
    if (data.isEmpty()) {
        out << std::endl;
        return out;
    }
    const std::ios_base::fmtflags flags = out.flags();
    out << std::hex;
    int limit = 60;
    for (int i = 0; i < data.size(); ++i) {
        if (i > limit) {
            out << std::endl;
            limit += 60;
        }
        out << data.at(i);
    }
    out << std::endl;
    out.flags(flags);
    return out;
}

void HwDatablock::setDatablockToCorrupt(bool value) {
    corrupt = value;
}

void HwDatablock::printHexDump(char* bytesToDump, unsigned int length) {
    if (bytesToDump == nullptr)
        length = 0;
    for (unsigned int i = 0; i < length; ++i) {
        // Promoted as a signed char: 0x80 and above print as ffffff80 and so on.
        std::printf("%02x ", static_cast<int>(static_cast<signed char>(bytesToDump[i])));
        if ((i + 1) % 16 == 0)
            std::printf("\n");
    }
    std::printf("\n");
}

} // namespace Tupsim
