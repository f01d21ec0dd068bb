// Writes a device in place: only the pages that changed, after a complete backup, each write
// looped until complete, then flushed and read back from the device itself and compared.
#include "EepromImage.h"
#include "image/Backups.h"
#include "image/FileIo.h"
#include "image/WriteStrategies.h"

#include <QFile>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace Tupsim {

namespace {

constexpr qint64 kDirectAlign = 4096;

QString hexOffset(qint64 offset) {
    return QStringLiteral("0x%1").arg(offset, 4, 16, QLatin1Char('0'));
}

// Reads the ranges into `back` (a copy of what was written) around the page cache: with
// O_DIRECT where the device takes it, else after dropping the cached pages and reopening, so
// that what comes back is what the device holds.
bool readBack(const QByteArray& name, const QVector<ByteRange>& ranges, QByteArray& back) {
    int fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_DIRECT);
    if (fd >= 0) {
        bool direct = true;
        for (const ByteRange& range : ranges) {
            const qint64 start = range.offset / kDirectAlign * kDirectAlign;
            const qint64 stop = (range.end() + kDirectAlign - 1) / kDirectAlign * kDirectAlign;
            std::unique_ptr<char, decltype(&std::free)> buffer(
                static_cast<char*>(std::aligned_alloc(kDirectAlign, stop - start)), &std::free);
            qint64 got = 0;
            while (buffer && got < stop - start) {
                const ssize_t n = ::pread(fd, buffer.get() + got, stop - start - got, start + got);
                if (n < 0 && errno == EINTR)
                    continue;
                if (n <= 0) {
                    direct = n == 0;
                    break;
                }
                got += n;
            }
            if (!buffer || !direct || got < range.end() - start) {
                direct = false;
                break;
            }
            std::copy(buffer.get() + (range.offset - start), buffer.get() + (range.end() - start),
                      back.data() + range.offset);
        }
        ::close(fd);
        if (direct)
            return true;
    }
    // O_DIRECT refused (sysfs, some FUSE file systems): they keep no cache of their own.
    fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
    bool ok = true;
    for (const ByteRange& range : ranges) {
        QByteArray part;
        if (!fileio::readAt(fd, range.offset, range.length, part) || part.size() != range.length) {
            ok = false;
            break;
        }
        std::copy(part.constBegin(), part.constEnd(), back.data() + range.offset);
    }
    const int saved = errno;
    ::close(fd);
    errno = saved;
    return ok;
}

} // namespace

WriteResult writeInPlace(const QString& path, const QByteArray& content,
                         const WriteOptions& options, const ImageSource& source) {
    WriteResult result;
    result.inPlace = true;
    const QByteArray name = QFile::encodeName(path);
    // Opened for writing before any backup: a device that refuses writing leaves nothing behind.
    const int fd = ::open(name.constData(), (options.dryRun ? O_RDONLY : O_RDWR) | O_CLOEXEC);
    if (fd < 0) {
        result.outcome = Outcome::failure(
            ResultCode::WriteFailed,
            QStringLiteral("cannot write %1: %2; nothing written").arg(path, fileio::lastError()));
        return result;
    }
    // A refusal (Refused) keeps its code; anything else failed to write.
    const auto fail = [&](const QString& text) {
        result.outcome = Outcome::failure(
            result.outcome.ok() ? ResultCode::WriteFailed : result.outcome.code, text);
        ::close(fd);
        return result;
    };
    // The whole previous content, once: what the pages are compared with and the backup holds.
    QByteArray previous;
    const qint64 limit = source.size < 0 ? EepromImage::MaxFileSize + 1 : source.size;
    if (!fileio::readAt(fd, 0, limit, previous))
        return fail(
            QStringLiteral("cannot read %1: %2; nothing written").arg(path, fileio::lastError()));
    if (previous.size() != content.size()) {
        result.outcome.code = ResultCode::Refused;
        return fail(QStringLiteral("%1 holds %2 bytes, the image %3; nothing written")
                        .arg(path)
                        .arg(previous.size())
                        .arg(content.size()));
    }
    result.pages = changedRanges(previous, content, options.pageSize);
    if (options.dryRun || result.pages.isEmpty()) {
        ::close(fd);
        return result;
    }
    QString why;
    if (options.keepBackup &&
        !backups::keep(path, previous, source.mode, options.backupDir, false, result.backup, why))
        return fail(why + QStringLiteral("; %1 left as it is").arg(path));

    const QString kept = result.backup.isEmpty()
                             ? QStringLiteral("no backup was kept")
                             : QStringLiteral("the previous content is in %1").arg(result.backup);
    const qint64 total = pageCount(result.pages, options.pageSize);
    qint64 pagesDone = 0;
    for (const ByteRange& range : result.pages) {
        qint64 done = 0;
        if (!fileio::writeAt(fd, range.offset, content.constData() + range.offset, range.length,
                             done)) {
            const QString reason = fileio::lastError();
            pagesDone += done / qMax(options.pageSize, 1);
            return fail(QStringLiteral("cannot write %1 at %2: %3, after %4 of %5 pages; %6")
                            .arg(path, hexOffset(range.offset + done), reason)
                            .arg(pagesDone)
                            .arg(total)
                            .arg(kept));
        }
        pagesDone += pageCount({range}, options.pageSize);
    }
    if (!fileio::syncData(fd))
        return fail(QStringLiteral("cannot flush %1: %2; %3").arg(path, fileio::lastError(), kept));
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
    ::close(fd);

    QByteArray back = content;
    if (!readBack(name, result.pages, back)) {
        result.outcome = Outcome::failure(
            ResultCode::WriteFailed,
            QStringLiteral("cannot read %1 back: %2; %3").arg(path, fileio::lastError(), kept));
        return result;
    }
    result.mismatches = changedRanges(back, content, 1);
    result.readBackMatched = result.mismatches.isEmpty();
    if (!result.readBackMatched) {
        result.outcome = Outcome::failure(ResultCode::WriteFailed,
                                          QStringLiteral("%1: the read-back differs at %2; %3")
                                              .arg(path, rangesText(result.mismatches), kept));
        return result;
    }
    return result;
}

} // namespace Tupsim
