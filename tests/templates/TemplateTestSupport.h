// Helpers of the table template tests: fixtures, little-endian fields and table images.
#pragma once

#include "support/Blocks.h"

#include <QByteArray>
#include <string>

namespace Tupsim {
namespace test {

inline std::string fixture(const std::string& name) {
    return golden("templates/" + name);
}

inline void putU16(QByteArray& image, int offset, unsigned value) {
    putAt<unsigned short>(image, offset, static_cast<unsigned short>(value));
}

inline void putU32(QByteArray& image, int offset, unsigned value) {
    putAt<unsigned>(image, offset, value);
}

inline unsigned getU16(const QByteArray& image, int offset) {
    return valueAt<unsigned short>(image, offset);
}

inline unsigned getU32(const QByteArray& image, int offset) {
    return valueAt<unsigned>(image, offset);
}

// A zeroed image of `size` bytes with id, size and counts in place, to be sealed by the caller.
inline QByteArray tableImage(int size, unsigned id, unsigned rows, unsigned cols,
                             int countsAt = 8) {
    QByteArray image(size, '\0');
    putU16(image, 0, id);
    putU16(image, 2, static_cast<unsigned>(size));
    putU32(image, countsAt, rows);
    putU32(image, countsAt + 4, cols);
    return image;
}

// The 16-bit word sum of an image; 0 when its checksum is valid.
inline unsigned wordSum(const QByteArray& image) {
    unsigned sum = 0;
    for (int i = 0; i + 1 < image.size(); i += 2)
        sum += getU16(image, i);
    return sum & 0xFFFF;
}

template <class Block> typename Block::HwSDatablock* record(QByteArray& image) {
    return reinterpret_cast<typename Block::HwSDatablock*>(image.data());
}

} // namespace test
} // namespace Tupsim
