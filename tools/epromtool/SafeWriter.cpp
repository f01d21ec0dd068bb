// How epromtool writes: its options for the library's one writer, and the writer's report.
#include "SafeWriter.h"

#include "CommandLine.h"
#include "Reports.h"

#include <SafeWrite.h>

namespace epromtool {

Tupsim::WriteOptions writeOptions(const CommandLine& line) {
    Tupsim::WriteOptions options;
    options.dryRun = line.isSet(QStringLiteral("dry-run"));
    options.keepBackup = !line.isSet(QStringLiteral("no-backup"));
    options.inPlace = line.isSet(QStringLiteral("in-place"));
    options.backupDir = line.value(QStringLiteral("backup-dir"));
    if (line.isSet(QStringLiteral("page-size")))
        options.pageSize = line.value(QStringLiteral("page-size")).toInt();
    return options;
}

QStringList writeLines(const QString& target, const Tupsim::WriteResult& result,
                       const Tupsim::WriteOptions& options) {
    const qint64 pages = Tupsim::pageCount(result.pages, options.pageSize);
    const QString amount = QStringLiteral("%1 page%2 of %3 bytes (%4 bytes)")
                               .arg(pages)
                               .arg(pages == 1 ? "" : "s")
                               .arg(options.pageSize)
                               .arg(Tupsim::byteCount(result.pages));
    if (options.dryRun) {
        if (!result.inPlace)
            return {QStringLiteral("dry run: %1 left as it is").arg(target)};
        if (result.pages.isEmpty())
            return {QStringLiteral("dry run: nothing differs, %1 left as it is").arg(target)};
        return {QStringLiteral("dry run: would write %1 to %2: %3")
                    .arg(amount, target, Tupsim::rangesText(result.pages)),
                QStringLiteral("dry run: %1 left as it is").arg(target)};
    }
    if (!result.inPlace)
        return {result.backup.isEmpty()
                    ? QStringLiteral("wrote %1").arg(target)
                    : QStringLiteral("wrote %1, previous kept as %2").arg(target, result.backup)};
    if (result.pages.isEmpty())
        return {QStringLiteral("nothing differs: %1 left as it is").arg(target)};
    QStringList lines;
    if (!result.backup.isEmpty())
        lines << QStringLiteral("backup of %1 kept as %2").arg(target, result.backup);
    lines << QStringLiteral("wrote %1 to %2 in place: %3")
                 .arg(amount, target, Tupsim::rangesText(result.pages))
          << QStringLiteral("read-back of %1 matched").arg(target);
    return lines;
}

QString writeFailure(const QString& target, const Tupsim::WriteResult& result) {
    if (result.inPlace || result.outcome.code == Tupsim::ResultCode::Refused)
        return result.outcome.message;
    return result.outcome.message + QStringLiteral("; %1 left as it is").arg(target);
}

Stop writeOutput(const QString& path, const QByteArray& content) {
    const Tupsim::Outcome written = Tupsim::safeWrite(path, content, false);
    if (written.ok())
        return std::nullopt;
    error(written.message);
    return exitCodeOf(written.code);
}

} // namespace epromtool
