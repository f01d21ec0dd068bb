// The calibration table classes of the catalogue, by block id: how the image layer prints,
// reads back, measures, compares and merges their images.
#pragma once

#include "ImageImport.h"
#include "ImageTables.h"
#include "Outcome.h"
#include "TextReadStatus.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <istream>
#include <ostream>

namespace Tupsim {
namespace tableKinds {

struct TableKind {
    quint16 id;
    quint16 axisId; // the frequency vector whose points the columns belong to; 0 for none
    int decimals;   // of a cell in the class's printout
    quint32 maxRows;
    quint32 maxCols;
    int imageSize;    // bytes of a whole image of the class
    int countsOffset; // of the row count; the column count follows
    // The class's own printout of an image.
    void (*print)(const QByteArray& image, std::ostream& out);
    // The class's reader over a whole file; `image` is the block it loaded when the status is ok.
    TextReadStatus (*read)(std::istream& in, QByteArray& image);
    TableChange (*compare)(const QByteArray& before, const QByteArray& after);
    // The stored image with the edits a section makes: every cell where `edited` differs from
    // `unedited` (the stored block read back from its own, untouched printout) takes the edited
    // value; every other cell keeps its stored bytes, even where the text form cannot carry
    // them exactly.
    QByteArray (*merge)(const QByteArray& stored, const QByteArray& unedited,
                        const QByteArray& edited);
    // Counts, capacity, factor, cells, row indexes and descriptors of an image of the class.
    void (*content)(const QByteArray& image, TableContent& content);
    // `image` with one cell set through the class, its checksum recomputed: `value` divided by
    // the factor and cut toward zero when `scaled`, else stored as it is. Anything but Ok
    // leaves `result` alone; DoesNotFit puts the stored type and its range in `rule`.
    TableEdit (*setCell)(const QByteArray& image, quint32 row, quint32 col, double value,
                         bool scaled, QByteArray& result, QString& rule);
};

// The kind of `id`, or nullptr when it is no table of the catalogue.
const TableKind* find(quint16 id);
// True when `id` is the frequency vector of some table of the catalogue.
bool isAxis(quint16 id);
// OverCapacity, "counts 5*3 exceed the capacity 4*10", when the counts of a table image do not
// fit its class; ok when they fit or `id` is no table of the catalogue.
Outcome overCapacity(quint16 id, const unsigned char* block, std::size_t size);

} // namespace tableKinds
} // namespace Tupsim
