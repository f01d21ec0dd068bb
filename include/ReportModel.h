// One neutral form of what the image layer finds: images, block checks, problems, plans and
// diffs as trees of QVariantMap and QVariantList, each fact under one canonical camelCase
// name. The tool renders these trees as JSON as they are; the Python module turns them into
// dicts whose keys are the same names in snake_case ("offsetA" -> "offset_a"), and nothing else.
// Absent values are null (an invalid QVariant).
#pragma once

#include "ImageDiff.h"
#include "ImageImport.h"
#include "RecordEdit.h"

#include <QVariantList>
#include <QVariantMap>

namespace Tupsim {
namespace reportModel {

// "changed", "removed", "added".
EPROMDATABLOCK_EXPORT const char* differenceName(BlockDifference::Kind kind);
// "unchanged", "changed", "not importable".
EPROMDATABLOCK_EXPORT const char* importOutcomeName(ImportedBlock::Outcome outcome);

// {offset, code, message}; the code in words ("checksum failed").
EPROMDATABLOCK_EXPORT QVariantMap problem(const ImageProblem& problem);
EPROMDATABLOCK_EXPORT QVariantList problems(const QVector<ImageProblem>& problems);
// {offset, id, name, className, textId, kind, size, end, alignment, checksum, crc32,
// overCapacity}: checksum {stored, computed, ok} (null for the end block), crc32 {stored,
// computed, ok, eventCounter} (null for blocks without one), overCapacity the complaint about
// a table's counts (null when they fit).
EPROMDATABLOCK_EXPORT QVariantMap block(const EepromImage& image, int index);
// {imageSize, problems, endOffset, used, free, ok}: the image as a whole, endOffset null for a
// broken chain.
EPROMDATABLOCK_EXPORT QVariantMap summary(const EepromImage& image);
// The summary with {blocks}: every block of the chain, the end block included.
EPROMDATABLOCK_EXPORT QVariantMap image(const EepromImage& image);
// {kind, id, offsetA, sizeA, offsetB, sizeB, headerChanges [{field, before, after}],
// bytesChanged}; offset and size null on the side that lacks the block.
EPROMDATABLOCK_EXPORT QVariantMap difference(const BlockDifference& difference);
// {differences, freeSpaceDiffers}.
EPROMDATABLOCK_EXPORT QVariantMap diff(const ImageDiff& diff);
// What every plan has: {ok, code, error (null when ok), replaced (blocks), notes (problems)}.
EPROMDATABLOCK_EXPORT QVariantMap plan(const ImagePlan& plan);
// The plan with {blocks [{index, id, offset, name, outcome, note, complaints}],
// skippedSections [{name, line, reason}]}.
EPROMDATABLOCK_EXPORT QVariantMap importPlan(const ImportPlan& plan);
// The plan with {index, id, offset, name, changes [{field, before, after}], checksum {before,
// after}}.
EPROMDATABLOCK_EXPORT QVariantMap recordEdit(const RecordEdit& edit);

} // namespace reportModel
} // namespace Tupsim
