// Replaces a file only once its new content is complete and flushed, optionally keeping the
// previous content as FILE.bak.
#pragma once

#include <QByteArray>
#include <QString>

namespace epromtool {

inline QString backupPath(const QString& path) {
    return path + QStringLiteral(".bak");
}

// The backup is written (the same safe way) before the target is touched, so a failure at any
// step leaves the target as it was. On failure `error` is "cannot write PATH: REASON".
bool safeWrite(const QString& path, const QByteArray& content, bool keepBackup, QString& error);

} // namespace epromtool
