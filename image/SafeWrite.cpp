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
            result.outcome = Outcome::failure(ResultCode::WriteFailed,
                                              QStringLiteral("cannot read %1 to keep a backup: %2")
                                                  .arg(path, file.errorString()));
            return result;
        }
    }
    if (options.sameSize && source != nullptr && previous.size() != content.size()) {
        result.outcome =
            Outcome::failure(ResultCode::Refused, QStringLiteral("%1 holds %2 bytes, the image %3")
                                                      .arg(path)
                                                      .arg(previous.size())
                                                      .arg(content.size()));
        return result;
    }
    result.pages = changedRanges(previous, content, options.pageSize);
    if (options.dryRun) {
        return result;
    }
    // A new file gets what the umask allows; a replaced one keeps its permissions, and so do its
    // backup and the temporary file.
    const unsigned mode = source != nullptr ? source->mode : fileio::kDefaultMode;
    QString why;
    if (options.keepBackup && source != nullptr &&
        !backups::keep(target, previous, mode, options.backupDir, true, result.backup, why)) {
        result.outcome = Outcome::failure(ResultCode::WriteFailed, why);
        return result;
    }
    QString reason;
    if (!fileio::publish(target, content, mode, true, reason)) {
        result.outcome = Outcome::failure(ResultCode::WriteFailed,
                                          QStringLiteral("cannot write %1: %2").arg(path, reason));
        return result;
    }
    return result;
}

WriteResult writeImage(const QString& path, const QByteArray& content,
                       const WriteOptions& options) {
    ImageSource source;
    const Outcome inspected = inspectSource(path, source);
    if (!inspected.ok()) {
        if (errno == ENOENT && !options.inPlace)
            return replaceFile(path, content, options, nullptr);
        WriteResult result;
        result.outcome =
            Outcome::failure(ResultCode::WriteFailed,
                             QStringLiteral("cannot write %1: %2").arg(path, inspected.message));
        return result;
    }
    if (source.kind == ImageSource::Directory) {
        WriteResult result;
        result.outcome = Outcome::failure(
            ResultCode::WriteFailed, QStringLiteral("cannot write %1: Is a directory").arg(path));
        return result;
    }
    if (options.inPlace || source.inPlaceOnly() || source.kind == ImageSource::Other)
        return writeInPlace(path, content, options, source);
    return replaceFile(path, content, options, &source);
}

Outcome safeWrite(const QString& path, const QByteArray& content, bool keepBackup) {
    WriteOptions options;
    options.keepBackup = keepBackup;
    return writeImage(path, content, options).outcome;
}

} // namespace Tupsim
