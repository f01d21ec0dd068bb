// The system calls the writers need, each looped until complete and retried on EINTR, with the
// system's reason for a failure; new files are created privately and made visible only whole.
#pragma once

#include <QByteArray>
#include <QString>

namespace Tupsim {
namespace fileio {

// strerror(errno) as a QString.
QString lastError();

// Reads from `fd` at `offset` until `length` bytes or the end; false on a read error.
bool readAt(int fd, qint64 offset, qint64 length, QByteArray& content);

// Writes `length` bytes at `offset`, looping over short writes (drivers take a page at a
// time); `done` counts the bytes that went out. A write that takes nothing is an error (EIO).
bool writeAt(int fd, qint64 offset, const char* data, qint64 length, qint64& done);

// fdatasync, where the file system has one: sysfs and FUSE files may not.
bool syncData(int fd);

// The mode for a file that replaces nothing: what the creation mode 0666 and the umask give.
constexpr unsigned kDefaultMode = ~0u;

// Writes `content` to a new file in the directory of `path` with permissions `mode`, flushed,
// then puts it at `path`: replacing a regular file there (`replace`), or only where nothing is
// (a symbolic link or anything else at `path` makes it fail with EEXIST). The temporary file
// never has wider permissions than `mode` (kDefaultMode: created 0666 under the umask) and is
// removed on failure. The directory is flushed.
bool publish(const QString& path, const QByteArray& content, unsigned mode, bool replace,
             QString& reason);

} // namespace fileio
} // namespace Tupsim
