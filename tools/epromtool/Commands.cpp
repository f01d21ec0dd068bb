// The commands of epromtool: each parses its command line, calls the library's image layer and
// prints what it got; the writing commands write through safeWrite.
#include "Commands.h"

#include "Batch.h"
#include "CommandLine.h"
#include "Reports.h"
#include "SafeWriter.h"

#include <EepromImage.h>
#include <ImageDiff.h>
#include <ImageExport.h>
#include <ImageImport.h>
#include <ImageRepair.h>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <RecordEdit.h>
#include <SampleImage.h>
#include <iostream>

using Tupsim::EepromImage;

namespace epromtool {

namespace {

const QString kImageArgument = QStringLiteral("IMAGE");
const QString kImageHelp = QStringLiteral("The EEPROM image file.");

// Complains about every problem; true (after "PATH: the chain is broken, nothing DONE") when
// the chain is broken and the command must stop.
bool stopOnBrokenChain(const QString& path, const EepromImage& image, const QString& done) {
    complain(path, image.problems());
    if (!image.chainBroken())
        return false;
    error(QStringLiteral("%1: the chain is broken, nothing %2").arg(path, done));
    return true;
}

// A command that reads IMAGE and prints one report of it, as text or with --json as JSON.
template <typename Text>
int runReport(const QStringList& arguments, const QString& command, const QString& description,
              Text (*text)(const EepromImage&),
              QJsonDocument (*json)(const QString&, const EepromImage&)) {
    CommandLine line(command, description);
    line.addArgument(kImageArgument, kImageHelp);
    addBatchArguments(line);
    line.addOffsetOption();
    line.addJsonOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start, true))
        return *stop;
    if (isBatch(line))
        return runBatchReport(
            line, start, [text](const EepromImage& image) { return linesOf(text(image)); }, json);
    EepromImage image;
    if (const Stop stop = loadImage(line.argument(0), image, start))
        return *stop;
    if (line.json())
        out(json(line.argument(0), image));
    else
        out(text(image));
    return exitCodeOf(image);
}

bool readFile(const QString& path, QByteArray& content) {
    QFile file(path);
    const QFileInfo info(path);
    QString reason;
    if (!info.exists())
        reason = QStringLiteral("No such file or directory");
    else if (info.isDir())
        reason = QStringLiteral("Is a directory");
    else if (!file.open(QIODevice::ReadOnly))
        reason = file.errorString();
    else
        content = file.readAll();
    if (reason.isEmpty())
        return true;
    error(QStringLiteral("cannot read %1: %2").arg(path, reason));
    return false;
}

// Applies a checked plan to `image`; when the library refuses, the exit code to stop with,
// after what was planned and why nothing was written.
Stop applyRefused(Tupsim::EepromImage& image, const Tupsim::ImagePlan& plan, const QString& path,
                  const QStringList& lines) {
    const Tupsim::Outcome applied = Tupsim::applyPlan(image, plan);
    if (applied.ok())
        return std::nullopt;
    out(lines);
    error(QStringLiteral("%1: %2; nothing written").arg(path, applied.message));
    return exitCodeOf(applied.code);
}

// Writes `image` to -o FILE or back to `path` through the library's writer (a device in place,
// changed pages only), keeping a backup unless --no-backup; with --dry-run writes nothing. Adds
// what it did to `lines`. When the write failed, the exit code to stop with, after `lines` and
// the reason.
Stop writeImage(const CommandLine& line, const QString& path, const EepromImage& image,
                QStringList& lines, QString& written) {
    const QString target =
        line.isSet(QStringLiteral("output")) ? line.value(QStringLiteral("output")) : path;
    const Tupsim::WriteOptions options = writeOptions(line);
    const Tupsim::WriteResult result = Tupsim::writeImage(target, image.bytes(), options);
    if (!result.ok()) {
        out(lines);
        error(writeFailure(target, result));
        return exitCodeOf(result.outcome.code);
    }
    if (!options.dryRun)
        written = target;
    lines << writeLines(target, result, options);
    return std::nullopt;
}

} // namespace

int runList(const QStringList& arguments) {
    return runReport(arguments, QStringLiteral("list"),
                     QStringLiteral("Lists the blocks of IMAGE in chain order: offset, id, name, "
                                    "size, 16-bit checksum and, for ids 20000 and above, CRC-32."),
                     &listing, &listingJson);
}

int runVerify(const QStringList& arguments) {
    return runReport(arguments, QStringLiteral("verify"),
                     QStringLiteral("Checks the chain of IMAGE and every block's checksum and "
                                    "CRC-32; prints the problems and one summary line."),
                     &verification, &verificationJson);
}

int runShow(const QStringList& arguments) {
    CommandLine line(QStringLiteral("show"),
                     QStringLiteral("Prints every block of IMAGE with the given id."));
    line.addArgument(kImageArgument, kImageHelp);
    line.addIdOption();
    line.addOption({QStringLiteral("hex"), QStringLiteral("Print the bytes as a hex dump.")});
    line.addOffsetOption();
    line.addJsonOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start))
        return *stop;
    quint16 id = 0;
    if (const Stop stop = line.requiredId(id))
        return *stop;

    const QString path = line.argument(0);
    EepromImage image;
    if (const Stop stop = loadImage(path, image, start))
        return *stop;
    QVector<int> chosen;
    for (int i = image.find(id); i >= 0; i = image.find(id, i + 1))
        chosen.append(i);
    complain(path, image.chainProblems());
    if (chosen.isEmpty()) {
        error(QStringLiteral("%1: no block with id %2").arg(path).arg(id));
        return exitCodeOf(Tupsim::ResultCode::UnknownBlock);
    }
    if (line.json()) {
        out(showJson(path, image, chosen));
        return exitCodeOf(image);
    }
    for (int i = 0; i < chosen.size(); ++i) {
        if (i > 0)
            out(QString());
        out(headline(image, chosen[i]));
        if (line.isSet(QStringLiteral("hex")))
            out(hexDump(image.blockBytes(chosen[i])));
        else
            std::cout << Tupsim::exportBlock(image, chosen[i]);
    }
    std::cout.flush();
    return exitCodeOf(image);
}

int runDiff(const QStringList& arguments) {
    CommandLine line(QStringLiteral("diff"),
                     QStringLiteral("Compares two images block by block: blocks added, removed "
                                    "or changed, with the changed header fields and the number "
                                    "of payload bytes that differ."));
    line.addArgument(QStringLiteral("IMAGE_A"), QStringLiteral("The first image."));
    line.addArgument(QStringLiteral("IMAGE_B"), QStringLiteral("The second image."));
    line.addOffsetOption();
    line.addJsonOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start))
        return *stop;
    EepromImage a;
    EepromImage b;
    if (const Stop stop = loadImage(line.argument(0), a, start))
        return *stop;
    complain(line.argument(0), a.problems());
    if (const Stop stop = loadImage(line.argument(1), b, start))
        return *stop;
    complain(line.argument(1), b.problems());
    const Tupsim::ImageDiff diff = Tupsim::diffImages(a, b);
    if (line.json())
        out(diffJson(line.argument(0), a, line.argument(1), b, diff));
    else
        out(diffText(a, diff));
    return worse(exitCodeOf(a), exitCodeOf(b));
}

int runExport(const QStringList& arguments) {
    CommandLine line(QStringLiteral("export"),
                     QStringLiteral("Writes the blocks of IMAGE as an ASCII calibration file, "
                                    "each in the form of its own class."));
    line.addArgument(kImageArgument, kImageHelp);
    addBatchArguments(line);
    line.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                    QStringLiteral("Write to FILE instead of standard output (one image only)."),
                    QStringLiteral("FILE")});
    line.addOption({QStringLiteral("id"),
                    QStringLiteral("Export only blocks with this id; may be repeated."),
                    QStringLiteral("N")});
    line.addOffsetOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start, true))
        return *stop;
    QSet<quint16> ids;
    for (const QString& text : line.values(QStringLiteral("id"))) {
        quint16 id = 0;
        if (!CommandLine::parseId(text, id))
            return line.usageError(QStringLiteral("'%1' is not a block id").arg(text));
        ids.insert(id);
    }
    if (isBatch(line)) {
        if (line.isSet(QStringLiteral("output")))
            return line.usageError(QStringLiteral("-o takes one image; several go to standard "
                                                  "output"));
        return runBatchExport(line, start, ids);
    }

    const QString path = line.argument(0);
    EepromImage image;
    if (const Stop stop = loadImage(path, image, start))
        return *stop;
    if (stopOnBrokenChain(path, image, QStringLiteral("exported")))
        return exitCodeOf(Tupsim::ResultCode::ChainBroken);
    if (reportMissingIds(path, image, ids))
        return exitCodeOf(Tupsim::ResultCode::UnknownBlock);
    const std::string content = Tupsim::exportImage(image, ids);
    if (!line.isSet(QStringLiteral("output"))) {
        std::cout << content;
        std::cout.flush();
        return exitCodeOf(image);
    }
    if (const Stop stop = writeOutput(line.value(QStringLiteral("output")),
                                      QByteArray(content.data(), static_cast<int>(content.size()))))
        return *stop;
    return exitCodeOf(image);
}

int runImport(const QStringList& arguments) {
    CommandLine line(QStringLiteral("import"),
                     QStringLiteral("Replaces every block of IMAGE whose class reads the ASCII "
                                    "form and whose section CALFILE holds; all other bytes pass "
                                    "through. Writes IMAGE in place, keeping IMAGE.bak."));
    line.addArgument(kImageArgument, kImageHelp);
    line.addArgument(QStringLiteral("CALFILE"), QStringLiteral("The ASCII calibration file."));
    line.addWriteOptions(kImageArgument);
    line.addOffsetOption();
    line.addJsonOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start))
        return *stop;

    const QString path = line.argument(0);
    EepromImage image;
    if (const Stop stop = loadImage(path, image, start))
        return *stop;
    if (stopOnBrokenChain(path, image, QStringLiteral("imported")))
        return exitCodeOf(Tupsim::ResultCode::ChainBroken);
    const QString calibrationPath = line.argument(1);
    QByteArray calibrationText;
    if (!readFile(calibrationPath, calibrationText))
        return exitCodeOf(Tupsim::ResultCode::Unreadable);

    // Everything is read before anything is written.
    const Tupsim::ImportPlan plan = Tupsim::planImport(image, calibrationText);
    if (!plan.ok()) {
        error(QStringLiteral("%1: %2; nothing written").arg(calibrationPath, plan.outcome.message));
        return exitCodeOf(plan.outcome.code);
    }
    const int code = exitCodeOf(image);
    const int blockCount = image.blockCount();
    QStringList lines = importLines(plan);
    if (const Stop stop = applyRefused(image, plan, path, lines))
        return *stop;
    lines << QStringLiteral("%1 of %2 blocks have a section in %3, %4 replaced")
                 .arg(plan.blocks.size())
                 .arg(blockCount)
                 .arg(calibrationPath)
                 .arg(plan.changedCount());

    QString written;
    if (const Stop stop = writeImage(line, path, image, lines, written))
        return *stop;
    if (line.json())
        out(importJson(path, calibrationPath, plan, blockCount, written));
    else
        out(lines);
    return code;
}

int runSet(const QStringList& arguments) {
    CommandLine line(QStringLiteral("set"),
                     QStringLiteral("Sets named fields of an identification, service, statistic, "
                                    "modification or counter block of IMAGE through the block's "
                                    "own setters. FIELD is the label the block prints in the "
                                    "calibration file (case-insensitive); every value is checked "
                                    "against its field before anything is written, and several "
                                    "assignments apply all or nothing. Writes IMAGE in place, "
                                    "keeping IMAGE.bak."));
    line.addArgument(kImageArgument, kImageHelp);
    line.addOptionalArguments(QStringLiteral("FIELD=VALUE..."),
                              QStringLiteral("The fields to set and their new values."));
    line.addIdOption();
    line.addIndexOption(QStringLiteral("Set"));
    line.addWriteOptions(kImageArgument);
    line.addOffsetOption();
    line.addJsonOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start, true))
        return *stop;
    quint16 id = 0;
    if (const Stop stop = line.requiredId(id))
        return *stop;
    int occurrence = 1;
    if (const Stop stop = line.occurrence(occurrence))
        return *stop;
    const QStringList texts = line.rest();
    if (texts.isEmpty())
        return line.usageError(QStringLiteral("no FIELD=VALUE given"));
    QVector<Tupsim::FieldAssignment> assignments;
    for (const QString& text : texts) {
        Tupsim::FieldAssignment assignment;
        // Assignments are part of the command line: one that does not parse is a usage error.
        const Tupsim::Outcome parsed = Tupsim::parseAssignment(text, assignment);
        if (!parsed.ok())
            return line.usageError(parsed.message);
        assignments << assignment;
    }

    const QString path = line.argument(0);
    EepromImage image;
    if (const Stop stop = loadImage(path, image, start))
        return *stop;
    if (stopOnBrokenChain(path, image, QStringLiteral("set")))
        return exitCodeOf(Tupsim::ResultCode::ChainBroken);
    const Tupsim::RecordEdit edit = Tupsim::planRecordEdit(image, id, occurrence, assignments);
    if (!edit.ok()) {
        error(QStringLiteral("%1: %2; nothing written").arg(path, edit.outcome.message));
        return exitCodeOf(edit.outcome.code);
    }
    QStringList lines = editLines(edit);
    if (const Stop stop = applyRefused(image, edit, path, lines))
        return *stop;
    QString written;
    if (const Stop stop = writeImage(line, path, image, lines, written))
        return *stop;
    if (line.json())
        out(editJson(path, edit, written));
    else
        out(lines);
    return exitCodeOf(image);
}

int runFix(const QStringList& arguments) {
    CommandLine line(QStringLiteral("fix"),
                     QStringLiteral("Recomputes the 16-bit checksum and, where the block has one, "
                                    "the CRC-32 of every block of IMAGE whose check fails (or "
                                    "only of blocks with --id N). Blocks the chain walk cannot "
                                    "delimit are reported and left alone. An image with nothing "
                                    "to fix is left untouched. Writes IMAGE in place, keeping "
                                    "IMAGE.bak."));
    line.addArgument(kImageArgument, kImageHelp);
    line.addOption({QStringLiteral("id"),
                    QStringLiteral("Repair only blocks with this id, decimal or 0x hexadecimal."),
                    QStringLiteral("N")});
    line.addWriteOptions(kImageArgument);
    line.addOffsetOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start))
        return *stop;
    int onlyId = -1;
    if (line.isSet(QStringLiteral("id"))) {
        quint16 id = 0;
        if (!CommandLine::parseId(line.value(QStringLiteral("id")), id))
            return line.usageError(
                QStringLiteral("'%1' is not a block id").arg(line.value(QStringLiteral("id"))));
        onlyId = id;
    }

    const QString path = line.argument(0);
    EepromImage image;
    if (const Stop stop = loadImage(path, image, start))
        return *stop;
    if (onlyId >= 0 && !image.chainBroken() && image.find(static_cast<quint16>(onlyId)) < 0) {
        error(QStringLiteral("%1: no block with id %2; nothing written").arg(path).arg(onlyId));
        return exitCodeOf(Tupsim::ResultCode::UnknownBlock);
    }
    const Tupsim::RepairPlan plan = Tupsim::planRepair(image, onlyId);
    complain(path, plan.notes);
    QStringList lines = repairLines(plan);
    const int code = exitCodeOf(plan.notes);
    if (plan.replace.isEmpty()) {
        lines << QStringLiteral("nothing to fix: %1 left as it is").arg(path);
        out(lines);
        return code;
    }
    if (const Stop stop = applyRefused(image, plan, path, lines))
        return *stop;
    QString written;
    if (const Stop stop = writeImage(line, path, image, lines, written))
        return *stop;
    out(lines);
    return worse(code, exitCodeOf(image));
}

int runSample(const QStringList& arguments) {
    CommandLine line(QStringLiteral("sample"),
                     QStringLiteral("Writes a demonstration EEPROM image of 32 KiB, built through "
                                    "the library's own setters: identification, service, "
                                    "statistics and modification blocks, calibration tables, a "
                                    "self-describing block and the end block. The bytes are the "
                                    "same on every run."));
    line.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                    QStringLiteral("The file to write (required)."),
                    QStringLiteral("FILE")});
    if (const Stop stop = line.parse(arguments))
        return *stop;
    if (!line.isSet(QStringLiteral("output")))
        return line.usageError(QStringLiteral("missing -o FILE"));
    if (const Stop stop = writeOutput(line.value(QStringLiteral("output")), Tupsim::sampleImage()))
        return *stop;
    return ExitOk;
}

} // namespace epromtool
