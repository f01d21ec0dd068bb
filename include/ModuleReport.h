// What a report of a module shows, for one image or two side by side: the verdict and the
// problems, the fields of the record blocks, every calibration table with its axis and plot
// lines and, for two images, which fields and cells differ; the other blocks by name and size.
#pragma once

#include "EepromImage.h"
#include "TableView.h"

#include <QString>
#include <QVector>
#include <vector>

namespace Tupsim {

struct ReportSide {
    bool ok = true;
    bool chainBroken = false;
    int size = 0;
    int blocks = 0;                 // blocks, the end block included
    QVector<ImageProblem> problems; // the first ones, up to the report's limit
    int problemCount = 0;           // all of them
};

// One field of a record block; with two images its value in each.
struct ReportField {
    QString block; // "IDENT_2"
    QString label; // "SN"
    QString value[2];
    bool present[2] = {false, false};
    bool differs = false;
};

// One calibration table; with two images the n-th table of an id in each.
struct ReportTable {
    TableView view[2];
    bool present[2] = {false, false};
    // Marks over the larger extent of the two: a cell whose value differs, or that only one
    // image holds. All clear for a single image.
    quint32 rows = 0;
    quint32 cols = 0;
    std::vector<bool> differs;
    int differing = 0;

    const TableView& first() const { return present[0] ? view[0] : view[1]; }
    bool cellDiffers(quint32 row, quint32 col) const {
        return row < rows && col < cols && differs[static_cast<std::size_t>(row) * cols + col];
    }
};

// A block that is neither a record with fields nor a calibration table.
struct ReportBlock {
    QString name;
    quint16 id = 0;
    QString kind; // "self-describing", "opaque", ...
    int offset[2] = {-1, -1};
    int size[2] = {0, 0};
    bool differs = false; // with two images: sizes or bytes differ, or only one holds it
};

struct ModuleReport {
    bool compared = false; // two images
    ReportSide side[2];
    QVector<ReportField> fields;
    std::vector<ReportTable> tables;
    QVector<ReportBlock> others;
    // What the limits below left out, so that a huge or hostile image still gives a report of
    // bounded size.
    int fieldsLeftOut = 0;
    int tablesLeftOut = 0;
    int othersLeftOut = 0;

    static constexpr int MaxProblems = 200;
    static constexpr int MaxFields = 2000;
    static constexpr std::size_t MaxCells = 200000; // per image
    static constexpr std::size_t MaxTables = 500;   // per image
    static constexpr int MaxOthers = 500;
};

namespace moduleReport {

EPROMDATABLOCK_EXPORT ModuleReport build(const EepromImage& image);
// Blocks pair by id and occurrence, as diffImages pairs them.
EPROMDATABLOCK_EXPORT ModuleReport compare(const EepromImage& a, const EepromImage& b);

} // namespace moduleReport
} // namespace Tupsim
