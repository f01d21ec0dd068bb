// The word sum and the CRC-32 of one block image, without a block object.
#include "image/ImageChecks.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>

namespace Tupsim {
namespace imagechecks {

namespace {

struct CrcTable {
    quint32 entry[256];
    CrcTable() {
        for (quint32 i = 0; i < 256; ++i) {
            quint32 c = i;
            for (int k = 0; k < 8; ++k)
                c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            entry[i] = c;
        }
    }
};

quint32 crcUpdate(quint32 crc, const unsigned char* bytes, std::size_t size) {
    static const CrcTable table;
    for (std::size_t i = 0; i < size; ++i)
        crc = table.entry[(crc ^ bytes[i]) & 0xFF] ^ (crc >> 8);
    return crc;
}

} // namespace

quint16 wordSum(const unsigned char* bytes, std::size_t size) {
    const std::size_t words = size / 2;
    quint64 total = 0;
    std::size_t i = 0;
    // Four words at a time, added in the two 32-bit lanes of a 64-bit sum; the lanes are
    // folded into the total before they could overflow.
    while (i + 4 <= words) {
        const std::size_t stop = std::min(words - (words - i) % 4, i + 4 * 16384);
        quint64 lanes = 0;
        for (; i < stop; i += 4) {
            quint64 x;
            std::memcpy(&x, bytes + 2 * i, sizeof x);
            x = qFromLittleEndian(x);
            lanes += (x & 0x0000FFFF0000FFFFull) + ((x >> 16) & 0x0000FFFF0000FFFFull);
        }
        total += (lanes & 0xFFFFFFFFu) + (lanes >> 32);
    }
    for (; i < words; ++i)
        total += quint32(bytes[2 * i]) | (quint32(bytes[2 * i + 1]) << 8);
    return static_cast<quint16>(total);
}

quint32 crc32Skipping4To11(const unsigned char* bytes, std::size_t size) {
    if (size == 0)
        return 0;
    quint32 crc = crcUpdate(0xFFFFFFFFu, bytes, size < 4 ? size : 4);
    if (size > 12)
        crc = crcUpdate(crc, bytes + 12, size - 12);
    return ~crc;
}

} // namespace imagechecks
} // namespace Tupsim
