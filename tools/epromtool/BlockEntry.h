// One block found while walking an image: where it lies and its own bytes.
#pragma once

#include <QByteArray>

namespace epromtool {

struct BlockEntry {
    int offset = 0;
    quint16 id = 0;
    int size = 0; // bytes the block occupies, header included
    bool isEnd = false;
    QByteArray image; // exactly `size` bytes
};

} // namespace epromtool
