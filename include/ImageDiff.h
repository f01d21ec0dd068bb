// The block-by-block comparison of two EEPROM images.
#pragma once

#include "EepromImage.h"

namespace Tupsim {

struct HeaderChange {
    QString field; // "size", "checksum" or "alignment"
    int before = 0;
    int after = 0;
};

// How one block differs between two images.
struct BlockDifference {
    enum Kind { Changed, Removed, Added };
    Kind kind = Changed;
    quint16 id = 0;
    int offsetA = -1; // -1: not in the first image
    int offsetB = -1; // -1: not in the second image
    int sizeA = 0;
    int sizeB = 0;
    QVector<HeaderChange> headerChanges;
    int bytesChanged = 0; // payload bytes behind the header that differ or exist in one only
};

struct ImageDiff {
    QVector<BlockDifference> differences;
    bool freeSpaceDiffers = false; // both chains whole, and the bytes behind them differ
};

// The n-th block with a given id in one image pairs with the n-th block with that id in the
// other; the end blocks are left out. Changed and removed blocks come in the order of the
// first image, added ones after them in the order of the second.
EPROMDATABLOCK_EXPORT ImageDiff diffImages(const EepromImage& a, const EepromImage& b);

} // namespace Tupsim
