// Compares two walked images block by block.
#pragma once

#include "BlockDifference.h"
#include "Chain.h"

#include <QByteArray>

namespace epromtool {

class ChainDiff {
public:
    // The n-th block with a given id in one image pairs with the n-th block with that id in the
    // other; the end blocks are left out. Changed and removed blocks come in the order of the
    // first image, added ones after them in the order of the second.
    static QVector<BlockDifference> compare(const Chain& a, const Chain& b);
    // Payload bytes (behind the 8-byte header) that differ, counting bytes present in one only.
    static int payloadBytesChanged(const QByteArray& before, const QByteArray& after);
    // True when both chains are intact and the bytes behind their end blocks differ.
    static bool freeSpaceDiffers(const Chain& a, const QByteArray& imageA, const Chain& b,
                                 const QByteArray& imageB);
};

} // namespace epromtool
