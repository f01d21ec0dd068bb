// Mainboard block holding the MAC address.
#include "HwDatablockMbrdMac.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {

namespace {
enum : int { LengthOffset = 8, MacOffset = 12, MacWidth = 16, ImageSize = 256 };
}

HwDatablockMbrdMac::HwDatablockMbrdMac() : HwDatablock(false) {
    image() = blockfields::freshImage(12004, ImageSize);
    image().replace(MacOffset, ImageSize - MacOffset, QByteArray(ImageSize - MacOffset, '\xFF'));
}

HwSDatablockMbrdMac* HwDatablockMbrdMac::getBlock() {
    return blockfields::recordView<HwSDatablockMbrdMac>(image());
}

int HwDatablockMbrdMac::setBlock(const HwSDatablockMbrdMac* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwSDatablockMbrdMac", 1040000,
                                   12004))
        return 1040000;
    swapBlock(record);
    return 0;
}

void HwDatablockMbrdMac::swapBlock(const HwSDatablockMbrdMac* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, bytes::getLE<quint16>(raw, 2),
                              bytes::getLE<quint16>(raw, 6));
    // Always the whole field: the record's own length word is not consulted.
    setMac(reinterpret_cast<const unsigned char*>(raw.constData()) + MacOffset, MacWidth);
    blockfields::keepRecordChecksum(*this, raw);
}

std::ostream& HwDatablockMbrdMac::printToStream(std::ostream& out) {
    return out;
}

void HwDatablockMbrdMac::setMac(const unsigned char* mac, unsigned int length) {
    if (mac == nullptr ||
        !bytes::fits(static_cast<std::uint64_t>(imageLength()), MacOffset, MacWidth))
        return;
    blockfields::store<quint32>(image(), LengthOffset, length);
    image().replace(MacOffset, MacWidth, QByteArray(MacWidth, '\xFF'));
    bytes::copyIn(image(), MacOffset, mac, std::min<unsigned int>(length, MacWidth));
}

unsigned char* HwDatablockMbrdMac::getMac(unsigned int* length) {
    return blockfields::areaWithLength(image(), MacOffset, MacWidth, LengthOffset, length);
}

unsigned int HwDatablockMbrdMac::getMacLength() {
    return bytes::getLE<quint32>(image(), LengthOffset);
}

} // namespace Tupsim
