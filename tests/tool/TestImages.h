// Small EEPROM images for the tool's tests, written out byte by byte.
#pragma once

#include "support/Bytes.h"

#include <QByteArray>
#include <zlib.h>

namespace Tupsim {
namespace test {

// Stores the CRC-32 of bytes 0..3 and 12..end at offset 8, as self-describing blocks carry it.
inline void sealCrc(QByteArray& block) {
    const QByteArray covered = block.left(4) + block.mid(12);
    const uLong crc = crc32(0L, reinterpret_cast<const Bytef*>(covered.constData()),
                            static_cast<uInt>(covered.size()));
    for (int i = 0; i < 4; ++i)
        block[8 + i] = static_cast<char>((crc >> (8 * i)) & 0xFF);
}

inline QByteArray sealed(QByteArray block) {
    sealChecksum(block);
    return block;
}

// Identification-like block at the head of the chain.
inline QByteArray identBlock() {
    return sealed(bytesOf({0x02, 0x00,                                    // id 2
                           0x10, 0x00,                                    // size 16
                           0x00, 0x00,                                    // checksum
                           0x00, 0x00,                                    // alignment 0
                           'M', 'O', 'D', '1', 0x00, 0x00, 0x00, 0x00})); // payload
}

// A calibration block with four payload bytes.
inline QByteArray calibBlock() {
    return sealed(bytesOf({0x10, 0x27,                // id 10000
                           0x0C, 0x00,                // size 12
                           0x00, 0x00,                // checksum
                           0x00, 0x00,                // alignment 0
                           0x01, 0x02, 0x03, 0x04})); // payload
}

// A self-describing block: CRC-32 at byte 8, then the 16-bit checksum over everything.
inline QByteArray selfDescribingBlock() {
    QByteArray block = bytesOf({0x21, 0x4E,             // id 20001
                                0x14, 0x00,             // size 20
                                0x00, 0x00,             // checksum
                                0x00, 0x00,             // alignment 0
                                0x00, 0x00, 0x00, 0x00, // CRC-32
                                0x00, 0x01,             // update index
                                0x00, 0x01,             // rows
                                0x00, 0x01,             // columns
                                0x00, 0x00});           // id types
    sealCrc(block);
    return sealed(block);
}

inline QByteArray endBlock() {
    return bytesOf({0xFF, 0xFF, 0x00, 0x00}); // end id, end data 0
}

// 16 + 12 + 20 + 4 bytes of chain, then 12 erased bytes of free space.
inline QByteArray goodImage() {
    return identBlock() + calibBlock() + selfDescribingBlock() + endBlock() +
           QByteArray(12, '\xFF');
}

} // namespace test
} // namespace Tupsim
