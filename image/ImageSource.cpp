// What an image source is and how large, from stat, statfs and, for block devices, the device.
#include "ImageSource.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace Tupsim {

namespace {

constexpr long kSysfsMagic = 0x62656572;

} // namespace

Outcome inspectSource(const QString& path, ImageSource& source) {
    const auto unreadable = [](int error) {
        return Outcome::failure(ResultCode::Unreadable,
                                QString::fromLocal8Bit(std::strerror(error)));
    };
    const QByteArray name = QFile::encodeName(path);
    struct stat status {};
    if (::stat(name.constData(), &status) != 0)
        return unreadable(errno);
    source = ImageSource();
    source.mode = status.st_mode & 0777;
    source.size = status.st_size;
    if (S_ISDIR(status.st_mode)) {
        source.kind = ImageSource::Directory;
    } else if (S_ISBLK(status.st_mode)) {
        // st_size of a block device is 0: the device knows its size.
        source.kind = ImageSource::BlockDevice;
        const int fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
        unsigned long long bytes = 0;
        const bool known = fd >= 0 && ::ioctl(fd, BLKGETSIZE64, &bytes) == 0;
        const int saved = errno;
        if (fd >= 0)
            ::close(fd);
        if (!known)
            return unreadable(saved);
        source.size = static_cast<qint64>(bytes);
    } else if (S_ISCHR(status.st_mode)) {
        source.kind = ImageSource::CharDevice;
        source.size = -1;
    } else if (S_ISREG(status.st_mode)) {
        struct statfs system {};
        if (::statfs(name.constData(), &system) == 0 && system.f_type == kSysfsMagic)
            source.kind = ImageSource::Sysfs;
    } else {
        source.kind = ImageSource::Other;
        source.size = -1;
    }
    return Outcome::success();
}

} // namespace Tupsim
