// Replaces a file only once its new content is complete and flushed.
#include "SafeWrite.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace Tupsim {

namespace {

bool commit(const QString& path, const QByteArray& content, QString& error) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    if (file.write(content) != content.size() || !file.commit()) {
        error = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        file.cancelWriting();
        return false;
    }
    return true;
}

} // namespace

QString backupPath(const QString& path) {
    return path + QStringLiteral(".bak");
}

bool safeWrite(const QString& path, const QByteArray& content, bool keepBackup, QString& error) {
    if (QFileInfo(path).isDir()) {
        error = QStringLiteral("cannot write %1: Is a directory").arg(path);
        return false;
    }
    if (keepBackup && QFileInfo::exists(path)) {
        QFile current(path);
        if (!current.open(QIODevice::ReadOnly)) {
            error = QStringLiteral("cannot read %1 to keep a backup: %2")
                        .arg(path, current.errorString());
            return false;
        }
        const QByteArray previous = current.readAll();
        if (current.error() != QFileDevice::NoError) {
            error = QStringLiteral("cannot read %1 to keep a backup: %2")
                        .arg(path, current.errorString());
            return false;
        }
        if (!commit(backupPath(path), previous, error))
            return false;
    }
    return commit(path, content, error);
}

} // namespace Tupsim
