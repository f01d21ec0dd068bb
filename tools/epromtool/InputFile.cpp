// Reads a whole input file, or says in one line why it cannot.
#include "InputFile.h"

#include <QFile>
#include <QFileInfo>

namespace epromtool {

bool InputFile::read(const QString& path, QByteArray& content, QString& error) {
    const QFileInfo info(path);
    QString reason;
    QFile file(path);
    if (!info.exists())
        reason = QStringLiteral("No such file or directory");
    else if (info.isDir())
        reason = QStringLiteral("Is a directory");
    else if (info.size() > MaxSize)
        reason = QStringLiteral("%1 bytes, too large for an EEPROM image (at most %2)")
                     .arg(info.size())
                     .arg(MaxSize);
    else if (!file.open(QIODevice::ReadOnly))
        reason = file.errorString();
    else {
        content = file.read(MaxSize + 1);
        if (file.error() != QFileDevice::NoError)
            reason = file.errorString();
        else if (content.size() > MaxSize)
            reason =
                QStringLiteral("too large for an EEPROM image (more than %1 bytes)").arg(MaxSize);
    }
    if (reason.isEmpty())
        return true;
    content.clear();
    error = QStringLiteral("cannot read %1: %2").arg(path, reason);
    return false;
}

} // namespace epromtool
