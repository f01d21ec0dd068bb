// Writing an image back with the default options: a file replaced only once its new content is
// complete and flushed, keeping the previous content as FILE.bak; a device written in place.
#pragma once

#include "EpromDatablockGlobal.h"
#include "ImageWriter.h"

#include <QByteArray>
#include <QString>

namespace Tupsim {

// PATH.bak, where a replaced file's previous content is kept.
EPROMDATABLOCK_EXPORT QString backupPath(const QString& path);

// writeImage(path, content) with or without a backup: a failure at any step leaves the target
// as it was, or (a device) says where its previous content is kept. On failure the message is
// one line, "cannot write PATH: REASON" or "cannot read PATH to keep a backup: REASON" for a
// file.
EPROMDATABLOCK_EXPORT Outcome safeWrite(const QString& path, const QByteArray& content,
                                        bool keepBackup);

} // namespace Tupsim
