// List of the modifications applied to a module, second kind: ten service codes.
#include "HwDatablockModification110.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/ModificationEntries.h"

namespace Tupsim {

using namespace modentries;

HwDatablockModification110::HwDatablockModification110() : HwDatablock(false) {
    image() = blockfields::freshImage(100, ImageSize);
}

HwSDatablockModification110* HwDatablockModification110::getBlock() {
    return blockfields::recordView<HwSDatablockModification110>(image());
}

int HwDatablockModification110::setBlock(const HwSDatablockModification110* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockModification110"))
        return 1;
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    copyRecord(*this, image(), raw, bytes::getLE<quint16>(raw, 6));
    return 0;
}

void HwDatablockModification110::swapBlock(const HwSDatablockModification110* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        copyRecord(*this, image(), raw, 0);
}

void HwDatablockModification110::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockModification110>(*this);
}

std::ostream& HwDatablockModification110::printToStream(std::ostream& out) {
    print(out, image(), "MODIFICATION_110");
    return out;
}

unsigned short HwDatablockModification110::getServiceCode(unsigned char index) {
    return entry(image(), index);
}

unsigned short HwDatablockModification110::getAction(unsigned char index) {
    return entry(image(), index) >> 14;
}

unsigned short HwDatablockModification110::getCircularNr(unsigned char index) {
    return entry(image(), index) & 0x3FFF;
}

void HwDatablockModification110::setServiceCode(unsigned char index, unsigned short code) {
    storeEntry(*this, image(), index, code);
}

void HwDatablockModification110::setAction(unsigned char index, unsigned short action) {
    storeEntry(*this, image(), index, withAction(entry(image(), index), action));
}

void HwDatablockModification110::setCircularNr(unsigned char index, unsigned short circularNr) {
    storeEntry(*this, image(), index, withCircularNr(entry(image(), index), circularNr));
}

} // namespace Tupsim
