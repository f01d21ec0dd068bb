// One kind of calibration table block known by its class: how its images are printed, read
// back from a calibration file and compared.
#pragma once

#include "TableChange.h"

#include <QByteArray>
#include <istream>
#include <ostream>

namespace epromtool {

// The counts one image holds against what its class can hold.
struct TableShape {
    int imageSize = 0; // bytes of a whole image of the class
    quint32 rows = 0;
    quint32 cols = 0;
    quint32 maxRows = 0;
    quint32 maxCols = 0;
};

struct TableKind {
    const char* className;
    quint16 id;
    // All null for the classes whose name and instance their caller gives: without a name
    // they have no section to print or to find.
    void (*print)(const QByteArray& image, std::ostream& out);
    // The class's own reader over the whole file; the image it loaded.
    QByteArray (*read)(std::istream& in);
    TableShape (*shape)(const QByteArray& image);
    TableChange (*compare)(const QByteArray& before, const QByteArray& after);
    // The stored image with the edits a section makes: every cell where `edited` differs from
    // `unedited` (the stored block read back from its own, untouched printout) takes the edited
    // value; every other cell keeps its stored bytes, even where the text form cannot carry
    // them exactly.
    QByteArray (*merge)(const QByteArray& stored, const QByteArray& unedited,
                        const QByteArray& edited);

    bool readsAscii() const { return read != nullptr; }
};

} // namespace epromtool
