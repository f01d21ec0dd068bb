// Byte-order conversion: scalar hooks, the generic pass over self-describing images (the one walk
// of their layout, reversing elements as it meets them), and the choice between the generic pass
// and the per-id conversion.
#include "HwDatablock.h"

#include "HwDatablockOldStyleInterpreter.h"
#include "core/ElementTypes.h"
#include "directory/SelfDescribingLayout.h"
#include "directory/TableWalk.h"

#include <algorithm>

namespace Tupsim {

namespace {

#if Q_BYTE_ORDER == Q_BIG_ENDIAN
template <typename T> void reverseInPlace(T& value) {
    char* p = reinterpret_cast<char*>(&value);
    std::reverse(p, p + sizeof(T));
}
#else
template <typename T> void reverseInPlace(T&) {}
#endif

// Reverses one element in place when its type's rule says so.
void reverseElement(void* image, std::uint64_t offset, std::uint64_t width, quint32 type) {
    if (elements::of(type).order != elements::Order::Reverse)
        return;
    unsigned char* p = static_cast<unsigned char*>(image) + offset;
    std::reverse(p, p + width);
}

} // namespace

unsigned short HwDatablock::swapIfPpc(unsigned short value) {
    reverseInPlace(value);
    return value;
}

unsigned long HwDatablock::swapLongIfPpc(unsigned long value) {
    quint32 narrow = static_cast<quint32>(value);
    reverseInPlace(narrow);
    return narrow;
}

void HwDatablock::SwapIntel2Ppc(char&) {}
void HwDatablock::SwapIntel2Ppc(short& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapIntel2Ppc(unsigned short& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapIntel2Ppc(int& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapIntel2Ppc(unsigned int& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapIntel2Ppc(unsigned long& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapIntel2Ppc(float& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapIntel2Ppc(double& value) {
    reverseInPlace(value);
}
void HwDatablock::SwapCharString(char*, unsigned int) {}

void HwDatablock::swapBlock(HwEDataFormatTyp target, unsigned short, HwDatablock*) {
    if (target == dataFormat)
        return;
    swapBlock(target, data.data(), static_cast<unsigned short>(data.size()));
    dataFormat = target;
}

void HwDatablock::swapBlock(HwEDataFormatTyp, char* bytes, unsigned short length) {
    if (bytes == nullptr)
        return;
    // Reversing is its own inverse, so the target does not change the walk. Header and table
    // words, type bytes and padding are left as they are; every step is bounded by `length`.
    unsigned char* image = reinterpret_cast<unsigned char*>(bytes);
    TableWalk walk(image, length, layout::PadUnit);
    walk.visitElements(reverseElement, image);
    walk.walkTables(layout::FirstTableOffset);
}

void HwDatablock::swapDataTo(HwEDataFormatTyp target, unsigned short id, HwDatablock* block) {
    if (block == nullptr)
        return;
    const HwEDataFormatTyp current = block->getDataFormatTyp();
    if (current == target)
        return;
    bool selfDescribing = false;
    if (current == HwDataFormatReference)
        selfDescribing = block->verifyChecksum32(); // in the reference form only the CRC tells
    else if (current == HwDataFormatConverted)
        selfDescribing = block->getId() >= 20000;
    if (selfDescribing) {
        QByteArray& image = block->data;
        swapBlock(target, image.data(), static_cast<unsigned short>(image.size()));
        block->setDataFormatTyp(target);
        return;
    }
    HwDatablockOldStyleInterpreter::swapHwDatablock(target, id, block);
}

} // namespace Tupsim
