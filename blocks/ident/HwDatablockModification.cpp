// List of the modifications applied to a module: ten service codes.
#include "HwDatablockModification.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/ModificationEntries.h"

namespace Tupsim {

using namespace modentries;

HwDatablockModification::HwDatablockModification() : HwDatablock(false) {
    image() = blockfields::freshImage(100, ImageSize);
}

HwSDatablockModification* HwDatablockModification::getBlock() {
    return blockfields::recordView<HwSDatablockModification>(image());
}

int HwDatablockModification::setBlock(const HwSDatablockModification* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockModification"))
        return 1;
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    copyRecord(*this, image(), raw, bytes::getLE<quint16>(raw, 6));
    return 0;
}

void HwDatablockModification::swapBlock(const HwSDatablockModification* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        copyRecord(*this, image(), raw, 0);
}

void HwDatablockModification::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockModification>(*this);
}

std::ostream& HwDatablockModification::printToStream(std::ostream& out) {
    print(out, image(), "MODIFICATION_100");
    return out;
}

unsigned short HwDatablockModification::getServiceCode(unsigned char index) {
    return entry(image(), index);
}

unsigned short HwDatablockModification::getAction(unsigned char index) {
    return entry(image(), index) >> 14;
}

unsigned short HwDatablockModification::getCircularNr(unsigned char index) {
    return entry(image(), index) & 0x3FFF;
}

void HwDatablockModification::setServiceCode(unsigned char index, unsigned short code) {
    storeEntry(*this, image(), index, code);
}

void HwDatablockModification::setAction(unsigned char index, unsigned short action) {
    storeEntry(*this, image(), index, withAction(entry(image(), index), action));
}

void HwDatablockModification::setCircularNr(unsigned char index, unsigned short circularNr) {
    storeEntry(*this, image(), index, withCircularNr(entry(image(), index), circularNr));
}

} // namespace Tupsim
