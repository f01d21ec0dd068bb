// What an image source is and how large: a regular file, a block device (its size from the
// device), a character device, or a file on sysfs such as the at24 and nvmem drivers' EEPROM
// files, which report their size but can be neither created nor replaced.
#pragma once

#include "EpromDatablockGlobal.h"
#include "Outcome.h"

#include <QString>

namespace Tupsim {

struct ImageSource {
    enum Kind { File, Directory, BlockDevice, CharDevice, Sysfs, Other };
    Kind kind = File;
    // The size in bytes; -1 when the source does not tell (character devices, pipes).
    qint64 size = -1;
    // Permission bits of the source, which its backups and temporary copies get.
    unsigned mode = 0644;
    // Written in place: a new file cannot replace it.
    bool inPlaceOnly() const { return kind == BlockDevice || kind == CharDevice || kind == Sysfs; }
};

// Looks at `path` (following symbolic links) without reading its content; Unreadable, with the
// system's reason ("No such file or directory"), when it cannot.
EPROMDATABLOCK_EXPORT Outcome inspectSource(const QString& path, ImageSource& source);

} // namespace Tupsim
