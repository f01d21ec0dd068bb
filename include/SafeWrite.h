// Replacing a file only once its new content is complete and flushed, optionally keeping the
// previous content as FILE.bak: how images are written back.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QByteArray>
#include <QString>

namespace Tupsim {

// PATH.bak, where safeWrite keeps the previous content.
EPROMDATABLOCK_EXPORT QString backupPath(const QString& path);

// Writes `content` to `path` through a temporary file that replaces the target only once it is
// complete. With `keepBackup` the previous content, where there is one, is first written (the
// same safe way) to backupPath(path), so a failure at any step leaves the target as it was. On
// failure `error` is "cannot write PATH: REASON" or "cannot read PATH to keep a backup: REASON".
EPROMDATABLOCK_EXPORT bool safeWrite(const QString& path, const QByteArray& content,
                                     bool keepBackup, QString& error);

} // namespace Tupsim
