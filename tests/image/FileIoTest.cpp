// A write is published only once its folder is flushed too: a folder that cannot be synced fails
// the write with the system's reason. This program's fsync stands in for the C library's.
#include <ImageWriter.h>
#include <QTemporaryDir>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
bool failFolderSync = false;
} // namespace

// The library's calls reach this definition too; it fails on a folder when asked, as a failing
// disk would, and passes everything else to the kernel.
extern "C" int fsync(int fd) {
    struct stat info;
    if (failFolderSync && ::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode)) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

TEST(FileIo, AFolderThatCannotBeSyncedFailsTheWrite) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("image.bin"));
    failFolderSync = true;
    const Tupsim::WriteResult failed = Tupsim::writeImage(path, "new");
    failFolderSync = false;
    EXPECT_EQ(failed.outcome.code, Tupsim::ResultCode::WriteFailed);
    EXPECT_EQ(
        failed.outcome.message,
        QStringLiteral("cannot write %1: %2").arg(path, QString::fromLocal8Bit(strerror(EIO))));
    EXPECT_TRUE(Tupsim::writeImage(path, "new").ok());
}
