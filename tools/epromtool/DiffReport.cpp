// Text and JSON forms of the differences between two images.
#include "DiffReport.h"

#include "ChainDiff.h"
#include "ImageReport.h"
#include "JsonReport.h"
#include "TextReport.h"

#include <QJsonArray>
#include <QJsonObject>

namespace epromtool {

namespace {

const char* kindName(BlockDifference::Kind kind) {
    switch (kind) {
    case BlockDifference::Changed:
        return "changed";
    case BlockDifference::Removed:
        return "removed";
    case BlockDifference::Added:
        return "added";
    }
    return "";
}

QString fieldValue(const HeaderChange& change, int value) {
    return change.field == QLatin1String("checksum") ? hex16(static_cast<unsigned>(value))
                                                     : QString::number(value);
}

QString offsetText(int offset) {
    return hex16(static_cast<unsigned>(offset));
}

QString differenceLine(const BlockDifference& d) {
    QString line = QStringLiteral("%1 block %2 at ")
                       .arg(QString::fromLatin1(kindName(d.kind)).leftJustified(7))
                       .arg(d.id);
    if (d.kind == BlockDifference::Removed)
        return line + QStringLiteral("%1, %2 bytes").arg(offsetText(d.offsetA)).arg(d.sizeA);
    if (d.kind == BlockDifference::Added)
        return line + QStringLiteral("%1, %2 bytes").arg(offsetText(d.offsetB)).arg(d.sizeB);
    line += offsetText(d.offsetA);
    if (d.offsetB != d.offsetA)
        line += QStringLiteral(" -> ") + offsetText(d.offsetB);
    QStringList changes;
    for (const HeaderChange& change : d.headerChanges)
        changes << QStringLiteral("%1 %2 -> %3")
                       .arg(change.field, fieldValue(change, change.before),
                            fieldValue(change, change.after));
    if (d.bytesChanged > 0)
        changes << (d.bytesChanged == 1
                        ? QStringLiteral("1 payload byte changed")
                        : QStringLiteral("%1 payload bytes changed").arg(d.bytesChanged));
    return line + QStringLiteral(": ") + changes.join(QStringLiteral(", "));
}

} // namespace

DiffReport::DiffReport(const ImageReport& first, const ImageReport& second)
    : a(first), b(second), differences(ChainDiff::compare(first.chain(), second.chain())),
      freeSpaceDiffers(ChainDiff::freeSpaceDiffers(first.chain(), first.bytes(), second.chain(),
                                                   second.bytes())) {}

QStringList DiffReport::text() const {
    QStringList lines;
    int counts[3] = {0, 0, 0};
    for (const BlockDifference& d : differences) {
        lines << differenceLine(d);
        ++counts[d.kind];
    }
    if (freeSpaceDiffers)
        lines << QStringLiteral("free space behind the end block differs");
    if (differences.isEmpty())
        lines << QStringLiteral("no differences in %1")
                     .arg(TextReport::blocksText(a.chain().dataBlockCount()));
    else
        lines << QStringLiteral("%1: %2 changed, %3 removed, %4 added")
                     .arg(differences.size() == 1
                              ? QStringLiteral("1 difference")
                              : QStringLiteral("%1 differences").arg(differences.size()))
                     .arg(counts[BlockDifference::Changed])
                     .arg(counts[BlockDifference::Removed])
                     .arg(counts[BlockDifference::Added]);
    return lines;
}

QJsonDocument DiffReport::json() const {
    QJsonArray list;
    for (const BlockDifference& d : differences) {
        QJsonObject object{{QStringLiteral("kind"), QLatin1String(kindName(d.kind))},
                           {QStringLiteral("id"), d.id}};
        if (d.offsetA >= 0) {
            object[QStringLiteral("offsetA")] = d.offsetA;
            object[QStringLiteral("sizeA")] = d.sizeA;
        }
        if (d.offsetB >= 0) {
            object[QStringLiteral("offsetB")] = d.offsetB;
            object[QStringLiteral("sizeB")] = d.sizeB;
        }
        if (d.kind == BlockDifference::Changed) {
            QJsonObject fields;
            for (const HeaderChange& change : d.headerChanges)
                fields[change.field] = QJsonArray{change.before, change.after};
            object[QStringLiteral("headerChanges")] = fields;
            object[QStringLiteral("bytesChanged")] = d.bytesChanged;
        }
        list.append(object);
    }
    QJsonObject document{{QStringLiteral("imageA"), a.path()},
                         {QStringLiteral("imageB"), b.path()},
                         {QStringLiteral("differences"), list},
                         {QStringLiteral("freeSpaceDiffers"), freeSpaceDiffers},
                         {QStringLiteral("problemsA"), JsonReport::problems(a.problems())},
                         {QStringLiteral("problemsB"), JsonReport::problems(b.problems())},
                         {QStringLiteral("exitCode"), qMax(a.exitCode(), b.exitCode())}};
    return QJsonDocument(document);
}

} // namespace epromtool
