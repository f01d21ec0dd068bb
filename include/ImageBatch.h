// Many images in one call: the paths a command names, directories walked, each image read,
// handed on and released before the next is read.
#pragma once

#include "EepromImage.h"
#include "EpromDatablockGlobal.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace Tupsim {

// One image of a batch: read, or the reason it could not be.
struct BatchItem {
    QString path;
    bool readable = false;
    QString reason;    // why it could not be read ("Permission denied"); empty when it was
    EepromImage image; // empty when it could not be read
};

enum class ImageVerdict { Ok, FailedChecks, BrokenChain, Unreadable };

// "ok", "failed checks", "broken chain", "unreadable".
EPROMDATABLOCK_EXPORT const char* verdictName(ImageVerdict verdict);
EPROMDATABLOCK_EXPORT ImageVerdict verdictOf(const BatchItem& item);

// What became of a whole batch, by verdict.
struct EPROMDATABLOCK_EXPORT BatchTally {
    int ok = 0;
    int failedChecks = 0;
    int brokenChain = 0;
    int unreadable = 0;

    int total() const { return ok + failedChecks + brokenChain + unreadable; }
    void add(const BatchItem& item);
};

namespace imageBatch {

// Calls `visit` with every path that `paths` name, in order. A file (or anything that is not a
// directory) is handed on as given, to be read or refused by the reader. With `recursive` a
// directory is walked: its regular files and those of its subdirectories, each directory's
// entries in the order of their names (a subdirectory at its name's place), symbolic links
// neither followed nor listed, devices, pipes and sockets left out. A directory that cannot be
// listed, and a named directory that holds no file, is handed on with `reason` set. Without
// `recursive` a directory goes to the reader, which refuses it.
EPROMDATABLOCK_EXPORT void
walk(const QStringList& paths, bool recursive,
     const std::function<void(const QString& path, const QString& reason)>& visit);

// Reads every image that `paths` name (as walk() finds them), the chain of each starting at
// `chainStart`, and hands each to `visit`; an image is released before the next is read, so
// memory does not grow with their number. Returns the tally.
EPROMDATABLOCK_EXPORT BatchTally forEachImage(const QStringList& paths, bool recursive,
                                              int chainStart,
                                              const std::function<void(const BatchItem&)>& visit);

} // namespace imageBatch
} // namespace Tupsim
