// Finds a block of a whole image by its id, as the chain walker sees it.
#pragma once

#include <ChainWalker.h>

namespace Tupsim {
namespace test {

// The first block with that id, or an empty array; `offset` receives where it lies (-1).
inline QByteArray blockWithId(const QByteArray& image, quint16 id, int* offset = nullptr) {
    for (const epromtool::BlockEntry& entry : epromtool::ChainWalker::walk(image).blocks)
        if (entry.id == id) {
            if (offset != nullptr)
                *offset = entry.offset;
            return entry.image;
        }
    if (offset != nullptr)
        *offset = -1;
    return QByteArray();
}

} // namespace test
} // namespace Tupsim
