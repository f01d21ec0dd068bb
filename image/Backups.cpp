// Backups of a target's previous content, complete before the target is touched.
#include "image/Backups.h"

#include "SafeWrite.h"
#include "image/FileIo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace Tupsim {
namespace backups {

namespace {

QString safeName(QString text) {
    for (QChar& c : text)
        if (!(c.isLetterOrNumber() && c.unicode() < 128) && c != QLatin1Char('-') &&
            c != QLatin1Char('_') && c != QLatin1Char('.'))
            c = QLatin1Char('_');
    return text;
}

// A backup path where something other than a regular file of ours stands is never written.
QString refusal(const QString& path) {
    struct stat status {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return QString();
    if (S_ISLNK(status.st_mode))
        return QStringLiteral("it is a symbolic link");
    if (!S_ISREG(status.st_mode))
        return QStringLiteral("it is not a regular file");
    if (status.st_uid != ::geteuid())
        return QStringLiteral("it belongs to another user");
    return QString();
}

} // namespace

QString timestampedName(const QString& target, const QDateTime& when) {
    const QFileInfo info(target);
    const QString parent = QFileInfo(info.absolutePath()).fileName();
    QString name = info.fileName();
    if (!parent.isEmpty() && parent != QLatin1String("dev"))
        name += QLatin1Char('-') + parent;
    return safeName(name) + QLatin1Char('-') + when.toString(QStringLiteral("yyyyMMdd-HHmmss")) +
           QStringLiteral(".eeprom");
}

bool keep(const QString& target, const QByteArray& previous, unsigned mode,
          const QString& directory, bool beside, QString& path, QString& error) {
    QString reason;
    if (beside && directory.isEmpty()) {
        path = backupPath(target);
        const QString refused = refusal(path);
        if (!refused.isEmpty()) {
            error = QStringLiteral("cannot write %1: %2, never written through").arg(path, refused);
            return false;
        }
        if (fileio::publish(path, previous, mode, true, reason))
            return true;
        error = QStringLiteral("cannot write %1: %2").arg(path, reason);
        return false;
    }
    const QDir place(directory.isEmpty() ? QDir::currentPath() : directory);
    const QString name = timestampedName(target, QDateTime::currentDateTime());
    const QString stem = name.left(name.size() - 7); // without ".eeprom"
    // Never over anything: a second backup within the same second, or whatever was planted at
    // the name, gets the next free number instead.
    for (int number = 1; number <= 100; ++number) {
        path = place.filePath(number == 1 ? name
                                          : QStringLiteral("%1-%2.eeprom").arg(stem).arg(number));
        if (fileio::publish(path, previous, mode, false, reason))
            return true;
        if (errno != EEXIST)
            break;
    }
    error = QStringLiteral("cannot write the backup %1: %2").arg(path, reason);
    return false;
}

} // namespace backups
} // namespace Tupsim
