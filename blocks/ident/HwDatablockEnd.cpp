// End block that closes the block chain of a module EEPROM.
#include "HwDatablockEnd.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {

HwDatablockEnd::HwDatablockEnd() : HwDatablock(false) {
    image() = QByteArray(sizeof(HwSDatablockEnd), '\0');
    setEndBlock();
}

unsigned short HwDatablockEnd::computeChecksum(unsigned short*, unsigned short) {
    return 0;
}

unsigned short HwDatablockEnd::computeChecksum() {
    return 0;
}

unsigned short HwDatablockEnd::getBlockSize() {
    return imageLength() >= 4 ? static_cast<unsigned short>(imageLength()) : 0;
}

unsigned short HwDatablockEnd::getChecksum() {
    return 0;
}

bool HwDatablockEnd::verifyChecksum(unsigned short*, unsigned short, bool) {
    return true;
}

bool HwDatablockEnd::verifyChecksum() {
    return true;
}

void HwDatablockEnd::setChecksum(unsigned short) {}

std::ostream& HwDatablockEnd::printToStream(std::ostream& out) {
    out << "# Das ist der END Block\n";
    out << "ID:              END\n";
    out << "\n";
    return out;
}

HwSDatablockEnd* HwDatablockEnd::getBlock() {
    return blockfields::recordView<HwSDatablockEnd>(image());
}

int HwDatablockEnd::setBlock(const HwSDatablockEnd* record) {
    if (record == nullptr)
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockEnd::swapBlock(const HwSDatablockEnd* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    setEndBlockID(bytes::getLE<quint16>(raw, 0));
    setEndBlockData(bytes::getLE<quint16>(raw, 2));
}

void HwDatablockEnd::setEndBlock() {
    setEndBlockID(0xFFFF);
    setEndBlockData(0);
}

void HwDatablockEnd::setEndBlockID(unsigned short id) {
    blockfields::store<quint16>(image(), 0, id);
}

void HwDatablockEnd::setEndBlockData(unsigned short data) {
    blockfields::store<quint16>(image(), 2, data);
}

} // namespace Tupsim
