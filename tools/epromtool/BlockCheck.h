// Checks one block with the library's own checksum and CRC-32 routines.
#pragma once

#include "BlockEntry.h"
#include "BlockStatus.h"

namespace epromtool {

class BlockCheck {
public:
    // Self-describing blocks, ids 20000 and above, carry a CRC-32 at byte 8.
    static bool carriesCrc(quint16 id) { return id >= 20000 && id != 0xFFFF; }
    static BlockStatus check(const BlockEntry& entry);
};

} // namespace epromtool
