// What epromtool prints: reports of images, differences and imports as text and as JSON.
#include "Reports.h"

#include <QJsonArray>
#include <QJsonObject>
#include <ReportModel.h>
#include <algorithm>
#include <charconv>
#include <iostream>
#include <string_view>
#include <vector>

using Tupsim::EepromImage;
using Tupsim::hex16;
using Tupsim::hex32;
using Tupsim::ImageBlock;

namespace epromtool {

namespace {

QString offsetText(int offset) {
    return hex16(static_cast<unsigned>(offset));
}

QString problemLine(const Tupsim::ImageProblem& problem) {
    return offsetText(problem.offset) + QStringLiteral(": ") + problem.text;
}

QString blocksText(int count) {
    return count == 1 ? QStringLiteral("1 block") : QStringLiteral("%1 blocks").arg(count);
}

QString verdict(bool present, bool ok) {
    if (!present)
        return QStringLiteral("-");
    return ok ? QStringLiteral("ok") : QStringLiteral("BAD");
}

QJsonObject jsonOf(const QVariantMap& model) {
    return QJsonObject::fromVariantMap(model);
}

// What every report says about the image as a whole.
QJsonObject imageObject(const QString& path, const EepromImage& image) {
    QJsonObject object = jsonOf(Tupsim::reportModel::summary(image));
    object[QStringLiteral("image")] = path;
    object[QStringLiteral("exitCode")] = exitCodeOf(image);
    return object;
}

QString differenceName(Tupsim::BlockDifference::Kind kind) {
    return QLatin1String(Tupsim::reportModel::differenceName(kind));
}

QString fieldValue(const Tupsim::HeaderChange& change, int value) {
    return change.field == QLatin1String("checksum") ? hex16(static_cast<unsigned>(value))
                                                     : QString::number(value);
}

QString differenceLine(const Tupsim::BlockDifference& d) {
    using Tupsim::BlockDifference;
    QString line =
        QStringLiteral("%1 block %2 at ").arg(differenceName(d.kind).leftJustified(7)).arg(d.id);
    if (d.kind == BlockDifference::Removed)
        return line + QStringLiteral("%1, %2 bytes").arg(offsetText(d.offsetA)).arg(d.sizeA);
    if (d.kind == BlockDifference::Added)
        return line + QStringLiteral("%1, %2 bytes").arg(offsetText(d.offsetB)).arg(d.sizeB);
    line += offsetText(d.offsetA);
    if (d.offsetB != d.offsetA)
        line += QStringLiteral(" -> ") + offsetText(d.offsetB);
    QStringList changes;
    for (const Tupsim::HeaderChange& change : d.headerChanges)
        changes << QStringLiteral("%1 %2 -> %3")
                       .arg(change.field, fieldValue(change, change.before),
                            fieldValue(change, change.after));
    if (d.bytesChanged > 0)
        changes << (d.bytesChanged == 1
                        ? QStringLiteral("1 payload byte changed")
                        : QStringLiteral("%1 payload bytes changed").arg(d.bytesChanged));
    return line + QStringLiteral(": ") + changes.join(QStringLiteral(", "));
}

QString importedLine(const Tupsim::ImportedBlock& block) {
    using Tupsim::ImportedBlock;
    QString line = QStringLiteral("block %1 at %2 %3: ")
                       .arg(QString::number(block.id), offsetText(block.offset), block.name);
    switch (block.outcome) {
    case ImportedBlock::NotImportable:
        return line + QStringLiteral("not importable, %1; left as it was").arg(block.note);
    case ImportedBlock::Unchanged:
        return line + QStringLiteral("unchanged");
    case ImportedBlock::Changed:
        return line + block.note;
    }
    return line;
}

} // namespace

void out(const QString& line) {
    std::cout << line.toStdString() << '\n';
}

void out(const QStringList& lines) {
    for (const QString& line : lines)
        out(line);
    std::cout.flush();
}

void out(const std::string& text) {
    std::cout << text;
    std::cout.flush();
}

void out(const QJsonDocument& document) {
    std::cout << document.toJson(QJsonDocument::Indented).toStdString();
    std::cout.flush();
}

void error(const QString& text) {
    std::cerr << "epromtool: " << text.toStdString() << std::endl;
}

Stop loadImage(const QString& path, EepromImage& image, int chainStart) {
    const Tupsim::Outcome read = EepromImage::fromFile(path, image, chainStart);
    if (read.ok())
        return std::nullopt;
    error(read.message);
    return exitCodeOf(read.code);
}

int exitCodeOf(const QVector<Tupsim::ImageProblem>& problems) {
    int code = ExitOk;
    for (const Tupsim::ImageProblem& problem : problems)
        code = worse(code, exitCodeOf(problem.code));
    return code;
}

int exitCodeOf(const EepromImage& image) {
    return exitCodeOf(image.problems());
}

void complain(const QString& path, const QVector<Tupsim::ImageProblem>& problems) {
    for (const Tupsim::ImageProblem& problem : problems)
        error(QStringLiteral("%1: %2").arg(path, problemLine(problem)));
}

std::string listing(const EepromImage& image) {
    // 19 000 rows for a 16 MiB image: written field by field straight into one text.
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(image.blockCount()));
    std::size_t nameWidth = 4;
    for (int i = 0; i < image.blockCount(); ++i) {
        names.push_back(image.kindOf(i).name());
        nameWidth = std::max(nameWidth, names.back().size());
    }
    // Offsets of a chain deep inside a large file need more than four digits.
    std::size_t offsetWidth = 6;
    if (image.blockCount() > 0)
        offsetWidth = std::max(offsetWidth,
                               static_cast<std::size_t>(
                                   offsetText(image.block(image.blockCount() - 1).offset).size()));
    std::string text;
    text.reserve(static_cast<std::size_t>(image.blockCount() + 3) * (nameWidth + 48));
    const auto left = [&text](std::string_view field, std::size_t width) {
        text += field;
        if (field.size() < width)
            text.append(width - field.size(), ' ');
    };
    const auto right = [&text](std::string_view field, std::size_t width) {
        if (field.size() < width)
            text.append(width - field.size(), ' ');
        text += field;
    };
    const auto row = [&](std::string_view offset, std::string_view id, std::string_view name,
                         std::string_view size, std::string_view checksum, std::string_view crc) {
        left(offset, offsetWidth);
        text += "  ";
        right(id, 5);
        text += "  ";
        left(name, nameWidth);
        text += "  ";
        right(size, 5);
        text += "  ";
        left(checksum, 8);
        text += "  ";
        text += crc;
        text += '\n';
    };
    const auto number = [](char* buffer, unsigned value, int base) {
        return std::string_view(
            buffer,
            static_cast<std::size_t>(std::to_chars(buffer, buffer + 16, value, base).ptr - buffer));
    };
    const auto verdictText = [](bool present, bool ok) {
        return !present ? "-" : ok ? "ok" : "BAD";
    };
    row("Offset", "Id", "Name", "Size", "Checksum", "CRC-32");
    for (int i = 0; i < image.blockCount(); ++i) {
        const ImageBlock& b = image.block(i);
        char hex[24] = "0x";
        char digits[16];
        const std::string_view offsetDigits = number(digits, static_cast<unsigned>(b.offset), 16);
        std::size_t at = 2;
        for (std::size_t pad = offsetDigits.size(); pad < 4; ++pad)
            hex[at++] = '0';
        offsetDigits.copy(hex + at, offsetDigits.size());
        const std::string_view offset(hex, at + offsetDigits.size());
        char idDigits[16];
        char sizeDigits[16];
        row(offset, number(idDigits, b.id, 10), names[static_cast<std::size_t>(i)],
            number(sizeDigits, static_cast<unsigned>(b.size), 10),
            verdictText(b.hasChecksum, b.checksumOk), verdictText(b.hasCrc, b.crcOk));
    }
    QStringList tail;
    for (const Tupsim::ImageProblem& problem : image.problems())
        tail << problemLine(problem);
    const QString blocks = blocksText(image.blockCount());
    if (image.chainBroken())
        tail << QStringLiteral("%1 read, chain broken at %2")
                    .arg(blocks, offsetText(image.chainProblems().first().offset));
    else
        tail << QStringLiteral("%1, end block at %2, %3 bytes used, %4 bytes free")
                    .arg(blocks, offsetText(image.endOffset()))
                    .arg(image.bytesUsed())
                    .arg(image.bytesFree());
    for (const QString& line : tail)
        text += line.toStdString() + '\n';
    return text;
}

QJsonDocument listingJson(const QString& path, const EepromImage& image) {
    QJsonObject object = jsonOf(Tupsim::reportModel::image(image));
    object[QStringLiteral("image")] = path;
    object[QStringLiteral("exitCode")] = exitCodeOf(image);
    return QJsonDocument(object);
}

QStringList verification(const EepromImage& image) {
    QStringList lines;
    const QVector<Tupsim::ImageProblem> problems = image.problems();
    for (const Tupsim::ImageProblem& problem : problems)
        lines << problemLine(problem);
    const QString blocks = blocksText(image.blockCount());
    const QString problemCount = problems.size() == 1
                                     ? QStringLiteral("1 problem")
                                     : QStringLiteral("%1 problems").arg(problems.size());
    if (image.chainBroken())
        lines << QStringLiteral("FAILED: chain broken at %1 after %2, %3")
                     .arg(offsetText(image.chainProblems().first().offset), blocks, problemCount);
    else if (!problems.isEmpty())
        lines << QStringLiteral("FAILED: %1 in %2, end block at %3")
                     .arg(problemCount, blocks, offsetText(image.endOffset()));
    else
        lines << QStringLiteral("ok: %1 checked, end block at %2")
                     .arg(blocks, offsetText(image.endOffset()));
    return lines;
}

QJsonDocument verificationJson(const QString& path, const EepromImage& image) {
    QJsonObject object = imageObject(path, image);
    object[QStringLiteral("blocks")] = image.blockCount();
    return QJsonDocument(object);
}

QString headline(const EepromImage& image, int index) {
    const ImageBlock& b = image.block(index);
    const Tupsim::BlockKindInfo kind = image.kindOf(index);
    QString line =
        QStringLiteral("block %1 at %2: %3")
            .arg(QString::number(b.id), offsetText(b.offset), QLatin1String(kind.className));
    if (!kind.textId.empty())
        line += QLatin1Char(' ') + QString::fromStdString(kind.textId);
    line += QStringLiteral(", %1 bytes").arg(b.size);
    if (b.hasChecksum)
        line += QStringLiteral(", alignment %1, checksum %2 %3")
                    .arg(QString::number(b.alignment), hex16(b.storedChecksum),
                         verdict(true, b.checksumOk));
    if (b.hasCrc)
        line += QStringLiteral(", CRC-32 %1 %2")
                    .arg(hex32(b.storedCrc), verdict(true, b.crcOk))
                    .append(b.eventCounter ? QStringLiteral(" (event counter)") : QString());
    return line;
}

QJsonDocument showJson(const QString& path, const EepromImage& image, const QVector<int>& chosen) {
    QJsonObject object = imageObject(path, image);
    QJsonArray blocks;
    for (int index : chosen) {
        QJsonObject shown = jsonOf(Tupsim::reportModel::block(image, index));
        shown[QStringLiteral("hex")] = QString::fromLatin1(image.blockBytes(index).toHex());
        blocks.append(shown);
    }
    object[QStringLiteral("blocks")] = blocks;
    return QJsonDocument(object);
}

QStringList hexDump(const QByteArray& bytes) {
    constexpr int BytesPerLine = 16;
    QStringList lines;
    for (int at = 0; at < bytes.size(); at += BytesPerLine) {
        QString line = QStringLiteral("%1 ").arg(at, 4, 16, QLatin1Char('0'));
        for (int i = at; i < at + BytesPerLine && i < bytes.size(); ++i) {
            // An extra blank splits each line into two groups of eight.
            line += (i - at == 8) ? QStringLiteral("  ") : QStringLiteral(" ");
            line += QStringLiteral("%1").arg(static_cast<unsigned char>(bytes.at(i)), 2, 16,
                                             QLatin1Char('0'));
        }
        lines << line;
    }
    return lines;
}

QStringList diffText(const EepromImage& a, const Tupsim::ImageDiff& diff) {
    QStringList lines;
    int counts[3] = {0, 0, 0};
    for (const Tupsim::BlockDifference& d : diff.differences) {
        lines << differenceLine(d);
        ++counts[d.kind];
    }
    if (diff.freeSpaceDiffers)
        lines << QStringLiteral("free space behind the end block differs");
    if (diff.differences.isEmpty())
        lines << QStringLiteral("no differences in %1").arg(blocksText(a.blockCount()));
    else
        lines << QStringLiteral("%1: %2 changed, %3 removed, %4 added")
                     .arg(diff.differences.size() == 1
                              ? QStringLiteral("1 difference")
                              : QStringLiteral("%1 differences").arg(diff.differences.size()))
                     .arg(counts[Tupsim::BlockDifference::Changed])
                     .arg(counts[Tupsim::BlockDifference::Removed])
                     .arg(counts[Tupsim::BlockDifference::Added]);
    return lines;
}

QJsonDocument diffJson(const QString& pathA, const EepromImage& a, const QString& pathB,
                       const EepromImage& b, const Tupsim::ImageDiff& diff) {
    QJsonObject document = jsonOf(Tupsim::reportModel::diff(diff));
    document[QStringLiteral("imageA")] = pathA;
    document[QStringLiteral("imageB")] = pathB;
    document[QStringLiteral("problemsA")] =
        jsonOf(Tupsim::reportModel::summary(a)).value(QStringLiteral("problems"));
    document[QStringLiteral("problemsB")] =
        jsonOf(Tupsim::reportModel::summary(b)).value(QStringLiteral("problems"));
    document[QStringLiteral("exitCode")] = worse(exitCodeOf(a), exitCodeOf(b));
    return QJsonDocument(document);
}

QStringList importLines(const Tupsim::ImportPlan& plan) {
    QStringList lines;
    for (const Tupsim::ImportedBlock& block : plan.blocks) {
        lines << importedLine(block);
        for (const QString& complaint : block.complaints)
            lines << QStringLiteral("  reader: ") + complaint;
    }
    for (const Tupsim::SkippedSection& section : plan.skipped)
        lines << QStringLiteral("section %1 (line %2): %3, left as it was")
                     .arg(section.name)
                     .arg(section.line)
                     .arg(section.reason);
    return lines;
}

QJsonDocument importJson(const QString& path, const QString& calibrationPath,
                         const Tupsim::ImportPlan& plan, int blockCount, const QString& written) {
    QJsonObject document = jsonOf(Tupsim::reportModel::importPlan(plan));
    document[QStringLiteral("image")] = path;
    document[QStringLiteral("calibrationFile")] = calibrationPath;
    document[QStringLiteral("blockCount")] = blockCount;
    document[QStringLiteral("written")] = written;
    return QJsonDocument(document);
}

QStringList editLines(const Tupsim::RecordEdit& edit) {
    QStringList lines;
    lines << QStringLiteral("block %1 at %2 %3:")
                 .arg(QString::number(edit.id), offsetText(edit.offset), edit.name);
    int width = 8; // "checksum"
    for (const Tupsim::FieldChange& change : edit.changes)
        width = std::max(width, static_cast<int>(change.field.size()));
    for (const Tupsim::FieldChange& change : edit.changes)
        lines << QStringLiteral("  %1  %2 -> %3")
                     .arg(change.field.leftJustified(width), change.before, change.after);
    lines << QStringLiteral("  %1  %2 -> %3")
                 .arg(QStringLiteral("checksum").leftJustified(width), hex16(edit.checksumBefore),
                      hex16(edit.checksumAfter));
    return lines;
}

QJsonDocument editJson(const QString& path, const Tupsim::RecordEdit& edit,
                       const QString& written) {
    QJsonObject document = jsonOf(Tupsim::reportModel::recordEdit(edit));
    document[QStringLiteral("image")] = path;
    document[QStringLiteral("written")] = written.isEmpty() ? QJsonValue() : QJsonValue(written);
    return QJsonDocument(document);
}

QStringList repairLines(const Tupsim::RepairPlan& plan) {
    QStringList lines;
    for (const Tupsim::BlockRepair& repair : plan.repairs) {
        QStringList parts;
        if (repair.crc)
            parts << QStringLiteral("CRC-32 %1 -> %2")
                         .arg(hex32(repair.crcBefore), hex32(repair.crcAfter));
        parts << (repair.checksum
                      ? QStringLiteral("checksum %1 -> %2")
                            .arg(hex16(repair.checksumBefore), hex16(repair.checksumAfter))
                      : QStringLiteral("checksum %1 stays").arg(hex16(repair.checksumBefore)));
        lines << QStringLiteral("block %1 at %2 %3: %4")
                     .arg(QString::number(repair.id), offsetText(repair.offset), repair.name,
                          parts.join(QStringLiteral(", ")));
    }
    if (!plan.repairs.isEmpty())
        lines << QStringLiteral("%1 repaired").arg(blocksText(plan.repairs.size()));
    return lines;
}

} // namespace epromtool
