// epromtool import IMAGE CALFILE: replaces the blocks whose sections CALFILE holds.
#include "BlockCatalogue.h"
#include "CalibrationFile.h"
#include "ChainDiff.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "ImageAssembler.h"
#include "ImageReport.h"
#include "InputFile.h"
#include "SafeWriter.h"
#include "SectionImport.h"

#include "core/HwBytes.h"

#include <QFileInfo>

namespace epromtool {

namespace {

// "block 15731 at 0x0120 NAME: ..." for one looked-up block.
QString outcomeLine(const BlockReport& block, const SectionImport::Parsed& parsed) {
    const QString head = QStringLiteral("block %1 at %2 %3: ")
                             .arg(QString::number(block.entry.id),
                                  hex16(static_cast<unsigned>(block.entry.offset)), block.textId);
    if (!parsed.read)
        return head + QStringLiteral("could not be read, left as it was");
    if (parsed.image == block.entry.image)
        return head + QStringLiteral("unchanged");
    using Tupsim::bytes::getLE;
    QString line = head + QStringLiteral("%1 bytes changed")
                              .arg(ChainDiff::payloadBytesChanged(block.entry.image, parsed.image));
    if (parsed.image.size() != block.entry.image.size())
        line += QStringLiteral(", size %1 -> %2").arg(block.entry.size).arg(parsed.image.size());
    return line + QStringLiteral(", checksum %1 -> %2")
                      .arg(hex16(getLE<quint16>(block.entry.image, 4)),
                           hex16(getLE<quint16>(parsed.image, 4)));
}

} // namespace

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
    if (!report.load(line.argument(0), *catalogue)) {
        Console::error(report.readError());
        return ExitUnreadable;
    }
    for (const Problem& problem : report.problems())
        Console::error(QStringLiteral("%1: %2").arg(report.path(), problem.line()));
    if (report.chain().broken()) {
        Console::error(
            QStringLiteral("%1: the chain is broken, nothing imported").arg(report.path()));
        return ExitUnreadable;
    }
    const QString calibrationPath = line.argument(1);
    QByteArray calibrationText;
    QString error;
    if (!InputFile::read(calibrationPath, calibrationText, error)) {
        Console::error(error);
        return ExitUnreadable;
    }

    // Everything is read before anything is written.
    const CalibrationFile sections(calibrationText);
    const QVector<BlockReport>& blocks = report.blocks();
    QVector<int> wanted;
    for (int i = 0; i < blocks.size(); ++i)
        if (!blocks[i].entry.isEnd && catalogue->readsAscii(blocks[i].entry.image) &&
            sections.hasSection(blocks[i].textId))
            wanted.append(i);
    QVector<SectionImport::Parsed> parsed;
    if (!SectionImport::run(*catalogue, report.chain().blocks, wanted, calibrationText, parsed,
                            error)) {
        Console::error(QStringLiteral("%1: %2; nothing written").arg(calibrationPath, error));
        return ExitUnreadable;
    }
    QMap<int, QByteArray> replacements;
    QStringList lines;
    for (const SectionImport::Parsed& entry : parsed) {
        lines << outcomeLine(blocks[entry.index], entry);
        if (entry.read && entry.image != blocks[entry.index].entry.image)
            replacements.insert(entry.index, entry.image);
    }
    QByteArray result;
    if (!ImageAssembler::assemble(report.bytes(), report.chain(), replacements, result, error)) {
        Console::out(lines);
        Console::error(QStringLiteral("%1: %2; nothing written").arg(report.path(), error));
        return ExitWriteFailed;
    }
    lines << QStringLiteral("%1 of %2 blocks have a section in %3, %4 replaced")
                 .arg(parsed.size())
                 .arg(report.chain().dataBlockCount())
                 .arg(calibrationPath)
                 .arg(replacements.size());

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
