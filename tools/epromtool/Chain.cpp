// Counts over a walked chain.
#include "Chain.h"

namespace epromtool {

int Chain::dataBlockCount() const {
    int count = 0;
    for (const BlockEntry& block : blocks)
        count += block.isEnd ? 0 : 1;
    return count;
}

int Chain::endOffset() const {
    if (!blocks.isEmpty() && blocks.constLast().isEnd)
        return blocks.constLast().offset;
    return -1;
}

} // namespace epromtool
