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
        0x21,    0x4E,                       // block id 20001
        0x40,    0x00,                       // block size 64
        0x00,    0x00,                       // checksum
        0x00,    0x00,                       // alignment 0: long header
        0x00,    0x00,  0x00,    0x00,       // CRC-32
        0x00,    0x69,                       // update index 105, most significant byte first
        0x00,    0x02,                       // rows
        0x00,    0x03,                       // columns
        FIX16D1,                             // row id type
        UINT16,                              // column id type
        INT32,   CHAR5, FIX32D4,             // column types
        0x00,                                // padding to 24
        0x0F,    0x00,  0xF6,    0xFF,       // row ids 1.5 and -1.0
        0x0A,    0x00,  0x14,    0x00, 0x1E, // column ids 10, 20,
        0x00,    0x00,  0x00,                //   30, padding to 36
        0x2A,    0x00,  0x00,    0x00,       // row 0: 42
        'a',     'b',   'c',     0x00, 0x00, //        "abc"
        0x39,    0x30,  0x00,    0x00,       //        12345 (1.2345)
        0xFF,    0xFF,  0xFF,    0xFF,       // row 1: -1
        'v',     'w',   'x',     'y',  'z',  //        "vwxyz"
        0xC7,    0xCF,  0xFF,    0xFF,       //        -12345 (-1.2345)
        0x00,    0x00,                       // trailing padding
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
