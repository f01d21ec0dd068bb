// Self-describing images shared by the directory tests, built field by field.
#pragma once

#include "support/Blocks.h"

#include <CommonDatablockAccess.h>
#include <ETypeId.h>
#include <HwDatablock2Edition.h>

#include <memory>

namespace Tupsim {
namespace test {

// Block 20001 in the long header layout: 2 rows by 3 columns with row and column identifiers.
inline QByteArray pageImage() {
    return bytesOf({
        0x21,  0x4E,  0x40,    0x00, 0,       0,      0,   0, // id 20001, size 64, checksum 0
        0,     0,     0,       0,    0x00,    0x69,   // CRC-32, update index 105 (MSB first)
        0x00,  0x02,  0x00,    0x03, FIX16D1, UINT16, // 2 rows, 3 columns, id types
        INT32, CHAR5, FIX32D4, 0x00,                  // column types, padding to 24
        0x0F,  0x00,  0xF6,    0xFF,                  // row ids 1.5 and -1.0
        0x0A,  0x00,  0x14,    0x00, 0x1E,    0x00,   0,   0,      // column ids 10, 20, 30, padding
        0x2A,  0x00,  0x00,    0x00, 'a',     'b',    'c', 0,   0, // row 0: 42, "abc",
        0x39,  0x30,  0x00,    0x00,                               //   12345 (1.2345)
        0xFF,  0xFF,  0xFF,    0xFF, 'v',     'w',    'x', 'y', 'z', // row 1: -1, "vwxyz",
        0xC7,  0xCF,  0xFF,    0xFF, 0,       0,                     //   -12345 (-1.2345), padding
    });
}

// Generic access over a block loaded with `image`; the access owns the block.
inline std::unique_ptr<CommonDatablockAccess> accessOf(const QByteArray& image, bool list = false) {
    auto* block = new HwDatablock2Edition;
    load(*block, image);
    block->setListFormat(list);
    return std::make_unique<CommonDatablockAccess>(block, nullptr, true);
}

} // namespace test
} // namespace Tupsim
