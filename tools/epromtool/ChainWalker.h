// Walks the block chain of a whole EEPROM image, never past its end.
#pragma once

#include "Chain.h"

namespace epromtool {

class ChainWalker {
public:
    static constexpr quint16 EndId = 0xFFFF;
    static constexpr int HeaderSize = 8;
    static constexpr int EndBlockSize = 4;

    // Every block header is read little-endian; a size below the header or past the image
    // stops the walk, so it always ends after at most size / 8 steps.
    static Chain walk(const QByteArray& image);
};

} // namespace epromtool
