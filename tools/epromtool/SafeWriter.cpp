// Replaces a file only once its new content is complete and flushed: the library's safe write,
// which the Python module shares.
#include "SafeWriter.h"

#include <SafeWrite.h>

namespace epromtool {

bool safeWrite(const QString& path, const QByteArray& content, bool keepBackup, QString& error) {
    return Tupsim::safeWrite(path, content, keepBackup, error);
}

} // namespace epromtool
