// Byte-order conversion: scalar hooks, the generic pass over self-describing images, and the
// choice between the generic pass and the per-id conversion.
#include "HwDatablock.h"

#include "ETypeId.h"
#include "HwDatablockOldStyleInterpreter.h"
#include "core/HwBytes.h"

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

// Width of one element in the generic pass; 0 for NONE and unknown codes. The two 32-bit
// fixed-point codes 16 and 17 count 2 bytes here, as the pass has always walked them.
unsigned int passWidth(unsigned char type) {
    static const unsigned char widths[26] = {0, 1, 1, 2, 2, 4, 4, 8, 8, 4,  8,  10, 2,
                                             2, 2, 2, 2, 2, 4, 4, 1, 5, 10, 15, 20, 1};
    return type < 26 ? widths[type] : 0;
}

bool isFixedText(unsigned char type) {
    return type == CHAR5 || type == CHAR10 || type == CHAR15 || type == CHAR20;
}

// Walks self-describing images and reverses their elements in place. Header and table words
// are read most significant byte first and left untouched; every step is bounded by `length`.
class GenericSwapPass {
public:
    GenericSwapPass(unsigned char* bytes, std::uint64_t length) : p(bytes), length(length) {}

    void run() {
        pos = 14; // id, size, checksum, alignment, CRC-32, header word
        while (pos < length)
            if (!table())
                break;
    }

private:
    unsigned int word(std::uint64_t at) const {
        return bytes::fits(length, at, 2) ? (unsigned(p[at]) << 8) | p[at + 1] : 0;
    }
    void pad() {
        while (pos % 4 != 0 && pos < length)
            ++pos;
    }
    // Converts one element; returns false when it runs past the end of the image.
    bool element(unsigned char type) {
        if (type == STRING) {
            while (pos < length && p[pos] != 0)
                ++pos;
            if (pos >= length)
                return false;
            ++pos; // the terminating zero
            return true;
        }
        const unsigned int width = passWidth(type);
        if (!bytes::fits(length, pos, width)) {
            pos = length;
            return false;
        }
        if (!isFixedText(type))
            std::reverse(p + pos, p + pos + width);
        pos += width;
        return true;
    }
    // Converts `count` elements of one type; a zero-width type consumes nothing.
    bool run(unsigned char type, std::uint64_t count) {
        if (type != STRING && passWidth(type) == 0)
            return true;
        for (std::uint64_t i = 0; i < count; ++i)
            if (!element(type))
                return false;
        return true;
    }
    bool table() {
        const std::uint64_t rows = word(pos);
        const std::uint64_t cols = word(pos + 2);
        if (!bytes::fits(length, pos, 6)) {
            pos = length;
            return false;
        }
        const unsigned char rowIdType = p[pos + 4];
        const unsigned char colIdType = p[pos + 5];
        pos += 6;
        if (!bytes::fits(length, pos, cols)) {
            pos = length;
            return false;
        }
        const unsigned char* colTypes = p + pos;
        pos += cols;
        pad();
        if (rowIdType != NONE) {
            if (!run(rowIdType, rows))
                return false;
            pad();
        }
        if (colIdType != NONE) {
            if (!run(colIdType, cols))
                return false;
            pad();
        }
        for (std::uint64_t r = 0; r < rows; ++r) {
            const std::uint64_t rowStart = pos;
            for (std::uint64_t c = 0; c < cols; ++c) {
                const unsigned char type = colTypes[c];
                if (type != STRING && passWidth(type) == 0)
                    continue;
                if (!element(type))
                    return false;
            }
            if (pos == rowStart)
                break; // rows of nothing: every further row is empty too
        }
        return true;
    }

    unsigned char* p;
    std::uint64_t length;
    std::uint64_t pos = 0;
};

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
    // Reversing is its own inverse, so the target does not change the walk.
    GenericSwapPass(reinterpret_cast<unsigned char*>(bytes), length).run();
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
