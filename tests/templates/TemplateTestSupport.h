// Helpers of the table template tests: images as byte arrays, fixtures, captured output.
#pragma once

#include "support/Bytes.h"

#include <QByteArray>
#include <fstream>
#include <sstream>
#include <string>

namespace Tupsim {
namespace test {

inline std::string fixture(const std::string& name) {
    std::ifstream in(std::string(EPROM_TEST_DATA_DIR) + "/templates/" + name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void putU16(QByteArray& image, int offset, unsigned value) {
    image[offset] = static_cast<char>(value & 0xFF);
    image[offset + 1] = static_cast<char>((value >> 8) & 0xFF);
}

inline void putU32(QByteArray& image, int offset, unsigned value) {
    putU16(image, offset, value & 0xFFFF);
    putU16(image, offset + 2, value >> 16);
}

inline unsigned getU16(const QByteArray& image, int offset) {
    return static_cast<unsigned char>(image[offset]) |
           (static_cast<unsigned char>(image[offset + 1]) << 8);
}

inline unsigned getU32(const QByteArray& image, int offset) {
    return getU16(image, offset) | (getU16(image, offset + 2) << 16);
}

// A zeroed image of `size` bytes with id, size and counts in place and a valid checksum once
// sealed by the caller.
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

template <class Block> std::string printed(Block& block) {
    std::ostringstream out;
    block.printToStream(out);
    return out.str();
}

} // namespace test
} // namespace Tupsim
