// Import and text form shared by the two opaque IPC user blocks.
#pragma once

#include "HwDatablock.h"

#include <QByteArray>
#include <ostream>

namespace Tupsim {
namespace ipcuser {

// What differs between the two user blocks.
struct Layout {
    unsigned short id;
    int imageSize;
    int dataOffset; // the user bytes run from here to the end of the image
    const char* rejectText;
};

// A record is refused only when its checksum fails and it is not exactly the block's id and
// size; an accepted record is copied over as many bytes as its size word says (at most a whole
// record) and keeps its own checksum. 0 on success, 1 when refused (error 1040001 signalled) or
// for nullptr.
int importRecord(HwDatablock& block, QByteArray& image, const void* record, const Layout& layout);

// Comment, ID and one "1:     " line per user byte, the byte written as a character.
void print(std::ostream& out, const QByteArray& image, const Layout& layout);

} // namespace ipcuser
} // namespace Tupsim
