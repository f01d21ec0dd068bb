// Byte-order conversion: scalar hooks and the choice between the generic pass over
// self-describing images and the per-id conversion, both installed by the block directory.
#include "HwDatablock.h"

#include "core/BlockHeader.h"
#include "core/Converters.h"

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
    // Reversing is its own inverse, so the target does not change the pass.
    conversion::convertSelfDescribing(reinterpret_cast<unsigned char*>(bytes), length);
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
        selfDescribing = block->getId() >= header::FirstSelfDescribingId;
    if (selfDescribing) {
        QByteArray& image = block->data;
        swapBlock(target, image.data(), static_cast<unsigned short>(image.size()));
        block->setDataFormatTyp(target);
        return;
    }
    conversion::convertById(target, id, *block);
}

} // namespace Tupsim
