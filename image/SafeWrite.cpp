// Chooses how an image reaches its target, and replaces regular files only once their new
// content is complete and flushed.
#include "SafeWrite.h"

#include "image/Backups.h"
#include "image/FileIo.h"
#include "image/WriteStrategies.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>

namespace Tupsim {

QString backupPath(const QString& path) {
    return path + QStringLiteral(".bak");
}

WriteResult replaceFile(const QString& path, const QByteArray& content, const WriteOptions& options,
                        const ImageSource* source) {
    WriteResult result;
    // A symbolic link named as the image is the user's way to the image: its target is written.
    const QFileInfo info(path);
    const QString target = info.isSymLink() ? info.symLinkTarget() : path;
    QByteArray previous;
    if (source != nullptr) {
        QFile file(target);
        if (!file.open(QIODevice::ReadOnly) ||
            (previous = file.readAll(), file.error() != QFileDevice::NoError)) {
            result.error =
                QStringLiteral("cannot read %1 to keep a backup: %2").arg(path, file.errorString());
            return result;
        }
    }
    if (options.sameSize && source != nullptr && previous.size() != content.size()) {
        result.sizeMismatch = true;
        result.error = QStringLiteral("%1 holds %2 bytes, the image %3")
                           .arg(path)
                           .arg(previous.size())
                           .arg(content.size());
        return result;
    }
    result.pages = changedRanges(previous, content, options.pageSize);
    if (options.dryRun) {
        result.ok = true;
        return result;
    }
    // A new file gets what the umask allows; a replaced one keeps its permissions, and so do its
    // backup and the temporary file.
    const unsigned mode = source != nullptr ? source->mode : fileio::kDefaultMode;
    if (options.keepBackup && source != nullptr &&
        !backups::keep(target, previous, mode, options.backupDir, true, result.backup,
                       result.error))
        return result;
    QString reason;
    if (!fileio::publish(target, content, mode, true, reason)) {
        result.error = QStringLiteral("cannot write %1: %2").arg(path, reason);
        return result;
    }
    result.ok = true;
    return result;
}

WriteResult writeImage(const QString& path, const QByteArray& content,
                       const WriteOptions& options) {
    ImageSource source;
    QString reason;
    if (!inspectSource(path, source, reason)) {
        if (errno == ENOENT && !options.inPlace)
            return replaceFile(path, content, options, nullptr);
        WriteResult result;
        result.error = QStringLiteral("cannot write %1: %2").arg(path, reason);
        return result;
    }
    if (source.kind == ImageSource::Directory) {
        WriteResult result;
        result.error = QStringLiteral("cannot write %1: Is a directory").arg(path);
        return result;
    }
    if (options.inPlace || source.inPlaceOnly() || source.kind == ImageSource::Other)
        return writeInPlace(path, content, options, source);
    return replaceFile(path, content, options, &source);
}

bool safeWrite(const QString& path, const QByteArray& content, bool keepBackup, QString& error) {
    WriteOptions options;
    options.keepBackup = keepBackup;
    const WriteResult result = writeImage(path, content, options);
    error = result.error;
    return result.ok;
}

} // namespace Tupsim
