// The writers' system calls, looped until complete, and private, whole-or-nothing new files.
#include "image/FileIo.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace Tupsim {
namespace fileio {

QString lastError() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool readAt(int fd, qint64 offset, qint64 length, QByteArray& content) {
    content.resize(static_cast<int>(length));
    qint64 got = 0;
    while (got < length) {
        const ssize_t n = ::pread(fd, content.data() + got, static_cast<size_t>(length - got),
                                  static_cast<off_t>(offset + got));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return false;
        if (n == 0)
            break;
        got += n;
    }
    content.resize(static_cast<int>(got));
    return true;
}

bool writeAt(int fd, qint64 offset, const char* data, qint64 length, qint64& done) {
    done = 0;
    while (done < length) {
        const ssize_t n = ::pwrite(fd, data + done, static_cast<size_t>(length - done),
                                   static_cast<off_t>(offset + done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            if (n == 0)
                errno = EIO; // no progress: looping on would never end
            return false;
        }
        done += n;
    }
    return true;
}

bool syncData(int fd) {
    if (::fdatasync(fd) == 0)
        return true;
    return errno == EINVAL || errno == ENOSYS || errno == EROFS;
}

namespace {

bool syncDirectory(const QByteArray& directory) {
    const int fd = ::open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0 || errno == EINVAL;
    ::close(fd);
    return ok;
}

} // namespace

bool publish(const QString& path, const QByteArray& content, unsigned mode, bool replace,
             QString& reason) {
    const QFileInfo info(path);
    const QByteArray directory = QFile::encodeName(info.absolutePath());
    const QByteArray target = QFile::encodeName(info.absoluteFilePath());
    std::random_device random;
    QByteArray temporary;
    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        temporary = directory + "/." + QFile::encodeName(info.fileName()) + "." +
                    QByteArray::number(random(), 36) + ".tmp";
        // Private from the first byte; widened to `mode` at most once it is ours.
        fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                    mode == kDefaultMode ? 0666 : 0600);
        if (fd < 0 && errno != EEXIST)
            break;
    }
    if (fd < 0) {
        reason = lastError();
        return false;
    }
    qint64 done = 0;
    bool ok = (mode == kDefaultMode || ::fchmod(fd, mode & 0666) == 0) &&
              writeAt(fd, 0, content.constData(), content.size(), done) && ::fsync(fd) == 0;
    int saved = errno;
    ok = ::close(fd) == 0 && ok;
    if (ok) {
        // rename replaces whatever is there without following it; link never replaces.
        ok = replace ? ::rename(temporary.constData(), target.constData()) == 0
                     : ::link(temporary.constData(), target.constData()) == 0;
        saved = errno;
        if (!ok || !replace)
            ::unlink(temporary.constData());
    } else {
        ::unlink(temporary.constData());
    }
    if (ok && !syncDirectory(directory)) {
        saved = errno;
        ok = false;
    }
    if (!ok) {
        errno = saved;
        reason = lastError();
    }
    return ok;
}

} // namespace fileio
} // namespace Tupsim
