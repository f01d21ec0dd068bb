// The backup of a target's previous content: FILE.bak beside a replaced file, or a new file
// named from the target and the time for a device, never written through a symbolic link.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace Tupsim {
namespace backups {

// "nvmem-0-00500-20261125-153012.eeprom" for /sys/bus/nvmem/devices/0-00500/nvmem: the file's
// name, its directory's name unless that is /dev, and the local time.
QString timestampedName(const QString& target, const QDateTime& when);

// Keeps `previous` (the content of `target`, permissions `mode`) complete and flushed: as
// TARGET.bak when `directory` is empty and `beside`, else as a new timestamped file in
// `directory` (the current directory when empty). Sets `path` to the backup; false with one
// line in `error` when it cannot, having written nothing.
bool keep(const QString& target, const QByteArray& previous, unsigned mode,
          const QString& directory, bool beside, QString& path, QString& error);

} // namespace backups
} // namespace Tupsim
