// An image walked block by block: its blocks in chain order and what broke the chain.
#pragma once

#include "BlockEntry.h"
#include "Problem.h"

#include <QVector>

namespace epromtool {

struct Chain {
    QVector<BlockEntry> blocks;     // the end block, when found, is the last one
    QVector<Problem> chainProblems; // not empty: the chain is broken
    int imageSize = 0;
    int used = 0; // bytes up to and including the end block; 0 when there is none

    bool broken() const { return !chainProblems.isEmpty(); }
    // Bytes behind the end block.
    int freeBytes() const { return broken() ? 0 : imageSize - used; }
    // Blocks other than the end block.
    int dataBlockCount() const;
    // Offset of the end block, -1 when there is none.
    int endOffset() const;
};

} // namespace epromtool
