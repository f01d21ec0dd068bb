// Images, checks, problems, plans and diffs as one neutral tree with canonical names.
#include "ReportModel.h"

namespace Tupsim {
namespace reportModel {

namespace {

QVariant orNull(bool present, const QVariant& value) {
    return present ? value : QVariant();
}

QVariantMap check(unsigned stored, unsigned computed, bool ok) {
    return {{QStringLiteral("stored"), static_cast<qint64>(stored)},
            {QStringLiteral("computed"), static_cast<qint64>(computed)},
            {QStringLiteral("ok"), ok}};
}

QVariantMap beforeAfter(const QVariant& before, const QVariant& after) {
    return {{QStringLiteral("before"), before}, {QStringLiteral("after"), after}};
}

} // namespace

const char* differenceName(BlockDifference::Kind kind) {
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

const char* importOutcomeName(ImportedBlock::Outcome outcome) {
    switch (outcome) {
    case ImportedBlock::Unchanged:
        return "unchanged";
    case ImportedBlock::Changed:
        return "changed";
    case ImportedBlock::NotImportable:
        return "not importable";
    }
    return "";
}

QVariantMap problem(const ImageProblem& problem) {
    return {{QStringLiteral("offset"), problem.offset},
            {QStringLiteral("code"), QLatin1String(resultCodeName(problem.code))},
            {QStringLiteral("message"), problem.text}};
}

QVariantList problems(const QVector<ImageProblem>& problems) {
    QVariantList list;
    list.reserve(problems.size());
    for (const ImageProblem& one : problems)
        list.append(problem(one));
    return list;
}

QVariantMap block(const EepromImage& image, int index) {
    const ImageBlock& b = image.block(index);
    const BlockKindInfo kind = image.kindOf(index);
    QVariantMap crc;
    if (b.hasCrc) {
        crc = check(b.storedCrc, b.computedCrc, b.crcOk);
        crc.insert(QStringLiteral("eventCounter"), b.eventCounter);
    }
    return {{QStringLiteral("offset"), b.offset},
            {QStringLiteral("id"), b.id},
            {QStringLiteral("name"), QString::fromStdString(kind.name())},
            {QStringLiteral("className"), QLatin1String(kind.className)},
            {QStringLiteral("textId"), QString::fromStdString(kind.textId)},
            {QStringLiteral("kind"), QLatin1String(blockCatalogue::kindName(kind.kind))},
            {QStringLiteral("size"), b.size},
            {QStringLiteral("end"), b.isEnd},
            {QStringLiteral("alignment"), b.alignment},
            {QStringLiteral("checksum"),
             orNull(b.hasChecksum, check(b.storedChecksum, b.computedChecksum, b.checksumOk))},
            {QStringLiteral("crc32"), orNull(b.hasCrc, crc)},
            {QStringLiteral("overCapacity"), orNull(!b.capacity.ok(), b.capacity.message)}};
}

QVariantMap summary(const EepromImage& image) {
    return {{QStringLiteral("imageSize"), image.size()},
            {QStringLiteral("problems"), problems(image.problems())},
            {QStringLiteral("endOffset"), orNull(!image.chainBroken(), image.endOffset())},
            {QStringLiteral("used"), image.bytesUsed()},
            {QStringLiteral("free"), image.bytesFree()},
            {QStringLiteral("ok"), image.ok()}};
}

QVariantMap image(const EepromImage& image) {
    QVariantMap whole = summary(image);
    QVariantList blocks;
    blocks.reserve(image.blockCount());
    for (int i = 0; i < image.blockCount(); ++i)
        blocks.append(block(image, i));
    whole.insert(QStringLiteral("blocks"), blocks);
    return whole;
}

QVariantMap difference(const BlockDifference& d) {
    QVariantList header;
    for (const HeaderChange& change : d.headerChanges)
        header.append(QVariantMap{{QStringLiteral("field"), change.field},
                                  {QStringLiteral("before"), change.before},
                                  {QStringLiteral("after"), change.after}});
    const bool inA = d.offsetA >= 0;
    const bool inB = d.offsetB >= 0;
    return {{QStringLiteral("kind"), QLatin1String(differenceName(d.kind))},
            {QStringLiteral("id"), d.id},
            {QStringLiteral("offsetA"), orNull(inA, d.offsetA)},
            {QStringLiteral("sizeA"), orNull(inA, d.sizeA)},
            {QStringLiteral("offsetB"), orNull(inB, d.offsetB)},
            {QStringLiteral("sizeB"), orNull(inB, d.sizeB)},
            {QStringLiteral("headerChanges"), header},
            {QStringLiteral("bytesChanged"), d.bytesChanged}};
}

QVariantMap diff(const ImageDiff& diff) {
    QVariantList differences;
    for (const BlockDifference& d : diff.differences)
        differences.append(difference(d));
    return {{QStringLiteral("differences"), differences},
            {QStringLiteral("freeSpaceDiffers"), diff.freeSpaceDiffers}};
}

QVariantMap plan(const ImagePlan& plan) {
    return {{QStringLiteral("ok"), plan.ok()},
            {QStringLiteral("code"), QLatin1String(resultCodeName(plan.outcome.code))},
            {QStringLiteral("error"), orNull(!plan.ok(), plan.outcome.message)},
            {QStringLiteral("replaced"), plan.replace.size()},
            {QStringLiteral("notes"), problems(plan.notes)}};
}

QVariantMap importPlan(const ImportPlan& import) {
    QVariantMap whole = plan(import);
    QVariantList blocks;
    for (const ImportedBlock& block : import.blocks)
        blocks.append(QVariantMap{
            {QStringLiteral("index"), block.index},
            {QStringLiteral("id"), block.id},
            {QStringLiteral("offset"), block.offset},
            {QStringLiteral("name"), block.name},
            {QStringLiteral("outcome"), QLatin1String(importOutcomeName(block.outcome))},
            {QStringLiteral("note"), block.note},
            {QStringLiteral("complaints"), block.complaints}});
    QVariantList skipped;
    for (const SkippedSection& section : import.skipped)
        skipped.append(QVariantMap{{QStringLiteral("name"), section.name},
                                   {QStringLiteral("line"), section.line},
                                   {QStringLiteral("reason"), section.reason}});
    whole.insert(QStringLiteral("blocks"), blocks);
    whole.insert(QStringLiteral("skippedSections"), skipped);
    return whole;
}

QVariantMap recordEdit(const RecordEdit& edit) {
    QVariantMap whole = plan(edit);
    QVariantList changes;
    for (const FieldChange& change : edit.changes)
        changes.append(QVariantMap{{QStringLiteral("field"), change.field},
                                   {QStringLiteral("before"), change.before},
                                   {QStringLiteral("after"), change.after}});
    whole.insert(QStringLiteral("index"), edit.index);
    whole.insert(QStringLiteral("id"), edit.id);
    whole.insert(QStringLiteral("offset"), edit.offset);
    whole.insert(QStringLiteral("name"), edit.name);
    whole.insert(QStringLiteral("changes"), changes);
    whole.insert(QStringLiteral("checksum"), beforeAfter(edit.checksumBefore, edit.checksumAfter));
    return whole;
}

} // namespace reportModel
} // namespace Tupsim
