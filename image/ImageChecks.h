// The 16-bit word sum and the CRC-32 of one block image in the reference form, over a byte view.
#pragma once

#include <QtGlobal>
#include <cstddef>

namespace Tupsim {
namespace imagechecks {

// Sum of the little-endian 16-bit words of the first size / 2 word pairs, modulo 65536.
quint16 wordSum(const unsigned char* bytes, std::size_t size);
// The reflected CRC-32 over bytes 0..3 and 12..size-1.
quint32 crc32Skipping4To11(const unsigned char* bytes, std::size_t size);

} // namespace imagechecks
} // namespace Tupsim
