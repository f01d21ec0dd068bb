// Outcome of checking one block's 16-bit checksum and, where it carries one, its CRC-32.
#pragma once

#include <QtGlobal>

namespace epromtool {

struct BlockStatus {
    bool hasChecksum = false; // the end block has none
    quint16 storedChecksum = 0;
    quint16 computedChecksum = 0;
    bool checksumOk = true;

    bool hasCrc = false;
    quint32 storedCrc = 0;
    quint32 computedCrc = 0;
    bool crcOk = true;
    bool eventCounter = false; // the CRC field holds the event-counter mark instead of a CRC

    bool ok() const { return checksumOk && crcOk; }
};

} // namespace epromtool
