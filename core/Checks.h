// Checksum kernels over a plain byte view: no block object, no allocation, no reads past the view.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QtGlobal>
#include <cstddef>

namespace Tupsim {
namespace checks {

// Sum of the first size / 2 words, each read least significant byte first, modulo 65536; an odd
// last byte is ignored. A block image in the reference form is consistent when this is 0.
EPROMDATABLOCK_EXPORT quint16 wordSum(const unsigned char* bytes, std::size_t size);

// The 16-bit checksum a block image should carry: the negated word sum with the checksum word
// (offset 4) counted as 0. Images shorter than 6 bytes have no checksum word.
EPROMDATABLOCK_EXPORT quint16 blockChecksum(const unsigned char* bytes, std::size_t size);

// Running reflected CRC-32 (0xEDB88320), chained like zlib's crc32(): start with 0, feed the
// previous result back in.
EPROMDATABLOCK_EXPORT quint32 crc32(quint32 crc, const unsigned char* bytes, std::size_t size);

// The block CRC-32 of an image in the reference form: bytes 0-3 and 12 to the end, leaving out
// the 16-bit checksum, the alignment word and the CRC field itself. 0 for an empty image.
EPROMDATABLOCK_EXPORT quint32 crc32Skipping4to11(const unsigned char* bytes, std::size_t size);

// The same CRC-32 one byte at a time through the 256-entry table: the slow, obvious form.
EPROMDATABLOCK_EXPORT quint32 crc32Bytewise(quint32 crc, const unsigned char* bytes,
                                            std::size_t size);

// The portable path of crc32(), eight bytes per step; taken when the processor lacks
// carry-less multiplication.
EPROMDATABLOCK_EXPORT quint32 crc32SliceBy8(quint32 crc, const unsigned char* bytes,
                                            std::size_t size);

// Which CRC-32 path this processor takes: "pclmul" or "slice-by-8".
EPROMDATABLOCK_EXPORT const char* crc32Path();

} // namespace checks
} // namespace Tupsim
