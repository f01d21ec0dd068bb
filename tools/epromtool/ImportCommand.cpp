// epromtool import IMAGE CALFILE: replaces the blocks whose sections CALFILE holds.
#include "BlockCatalogue.h"
#include "CalibrationImport.h"
#include "CommandLine.h"
#include "CommandSupport.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "ImageAssembler.h"
#include "ImageReport.h"
#include "InputFile.h"
#include "SafeWriter.h"

#include <QFileInfo>

namespace epromtool {

int runImport(const QStringList& arguments) {
    CommandLine line(QStringLiteral("import"),
                     QStringLiteral("Replaces every block of IMAGE whose class reads the ASCII "
                                    "form and whose section CALFILE holds; all other bytes pass "
                                    "through. Writes IMAGE in place, keeping IMAGE.bak."));
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addArgument(QStringLiteral("CALFILE"), QStringLiteral("The ASCII calibration file."));
    line.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                    QStringLiteral("Write the new image to FILE instead of IMAGE."),
                    QStringLiteral("FILE")});
    line.addOption({QStringLiteral("dry-run"), QStringLiteral("Report, but write nothing.")});
    line.addOption({QStringLiteral("no-backup"),
                    QStringLiteral("Do not keep the replaced file as FILE.bak.")});
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;

    auto catalogue = makeBlockCatalogue();
    ImageReport report;
    if (!CommandSupport::load(report, line.argument(0), *catalogue))
        return ExitUnreadable;
    if (CommandSupport::stopOnBrokenChain(report, QStringLiteral("imported")))
        return ExitUnreadable;
    const QString calibrationPath = line.argument(1);
    QByteArray calibrationText;
    QString error;
    if (!InputFile::read(calibrationPath, calibrationText, error)) {
        Console::error(error);
        return ExitUnreadable;
    }

    // Everything is read before anything is written.
    CalibrationImport import;
    if (!import.read(report, *catalogue, calibrationText, error)) {
        Console::error(QStringLiteral("%1: %2; nothing written").arg(calibrationPath, error));
        return ExitUnreadable;
    }
    QStringList lines = import.outcome();
    QByteArray result;
    if (!ImageAssembler::assemble(report.bytes(), report.chain(), import.replacements(), result,
                                  error)) {
        Console::out(lines);
        Console::error(QStringLiteral("%1: %2; nothing written").arg(report.path(), error));
        return ExitWriteFailed;
    }
    lines << QStringLiteral("%1 of %2 blocks have a section in %3, %4 replaced")
                 .arg(import.lookedUp())
                 .arg(report.chain().dataBlockCount())
                 .arg(calibrationPath)
                 .arg(import.replacements().size());

    const QString target =
        line.isSet(QStringLiteral("output")) ? line.value(QStringLiteral("output")) : report.path();
    const bool keepBackup = !line.isSet(QStringLiteral("no-backup"));
    if (line.isSet(QStringLiteral("dry-run"))) {
        Console::out(lines << QStringLiteral("dry run: %1 left as it is").arg(target));
        return report.exitCode();
    }
    const bool backedUp = keepBackup && QFileInfo::exists(target);
    if (!SafeWriter::write(target, result, keepBackup, error)) {
        Console::out(lines);
        Console::error(error + QStringLiteral("; %1 left as it is").arg(target));
        return ExitWriteFailed;
    }
    Console::out(lines << (backedUp ? QStringLiteral("wrote %1, previous kept as %2")
                                          .arg(target, SafeWriter::backupPath(target))
                                    : QStringLiteral("wrote %1").arg(target)));
    return report.exitCode();
}

} // namespace epromtool
