// Writing an image to its target, the one way every writing command and the Python module
// take: a regular file is replaced only once the new content is complete; a device (block or
// character device, sysfs file, or any target written in place) gets only its changed pages,
// then is read back from the device and compared. Either way the previous content is first kept
// complete in a backup, which is never written through a symbolic link and never gets wider
// permissions than the target.
#pragma once

#include "EpromDatablockGlobal.h"
#include "Outcome.h"
#include "WriteRanges.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Tupsim {

struct WriteOptions {
    bool keepBackup = true;
    // Where backups go. Empty: FILE.bak beside a replaced file, the current directory for a
    // target written in place.
    QString backupDir;
    // Write in place even where a new file could replace the target.
    bool inPlace = false;
    // The device's write unit: changed bytes go out in whole pages of this many bytes. 32 is
    // the smallest at24 page in common use.
    int pageSize = 32;
    // Work out what would be written; write nothing, keep no backup.
    bool dryRun = false;
    // Refuse an existing file of another size, as a device always is.
    bool sameSize = false;
};

struct WriteResult {
    // WriteFailed with one line: what failed, where, and what state the target and the backup
    // are in; Refused when the target had another size than the content (nothing written).
    Outcome outcome;
    // Written in place, page by page; else replaced as a whole file.
    bool inPlace = false;
    // The backup kept of the previous content; empty when none was (needed).
    QString backup;
    // Where the new content differs from the previous one, in whole pages: what was (or, on a
    // dry run, would be) written in place.
    QVector<ByteRange> pages;
    // In place: the read-back from the device matched everything written.
    bool readBackMatched = false;
    // The ranges where the read-back differed.
    QVector<ByteRange> mismatches;

    bool ok() const { return outcome.ok(); }
};

// Writes `content` to `path` as the options say; never throws, never leaves a partial backup.
EPROMDATABLOCK_EXPORT WriteResult writeImage(const QString& path, const QByteArray& content,
                                             const WriteOptions& options = WriteOptions());

} // namespace Tupsim
