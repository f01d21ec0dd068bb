// The calibration tables of an EEPROM image read and edited cell by cell through their own
// classes: counts, capacity, factor, cells scaled and raw, row indexes and descriptors.
#pragma once

#include "EepromImage.h"

#include <QString>
#include <string>
#include <vector>

namespace Tupsim {

// What a calibration table holds, as its class reads it.
struct TableContent {
    quint32 rows = 0; // the stored counts, which may exceed the capacity
    quint32 cols = 0;
    quint32 maxRows = 0; // the capacity of the class
    quint32 maxCols = 0;
    double factor = 1.0;
    std::string
        rawType; // of the stored cells: "int8", "uint16", "int32", "float32", "float64", ...
    bool integral = true; // the stored cells are integers

    // The cells within the counts and the capacity, row by row: the stored value times the
    // factor as the class hands it out, and the stored value itself.
    std::vector<double> values;
    std::vector<double> raw;

    bool hasIndexes = false; // index tables: the row index of every row within the counts
    std::vector<int> indexes;
    bool hasDescriptors = false; // tables with descriptors: every descriptor of the class
    std::vector<std::string> descriptors;

    // Rows and columns of `values` and `raw`.
    quint32 shownRows() const { return rows < maxRows ? rows : maxRows; }
    quint32 shownCols() const { return cols < maxCols ? cols : maxCols; }
};

// What a table class says about setting one cell of its image.
enum class TableEdit {
    Ok,
    OutOfRange, // the cell is outside the counts or the capacity
    DoesNotFit, // the value does not fit the stored type
};

// True when block `index` is a calibration table whose cells can be read and set.
EPROMDATABLOCK_EXPORT bool isTable(const EepromImage& image, int index);
// The table of block `index`; false when it is no calibration table of the catalogue.
EPROMDATABLOCK_EXPORT bool readTable(const EepromImage& image, int index, TableContent& content);
// Sets one cell from a value as the calibration file shows it: divided by the factor and cut
// toward zero, as the file reader stores it. The block's checksum is recomputed. UnknownBlock
// (no calibration table), OutOfRange (a cell outside the table) or DoesNotFit, naming the
// block, the cell and the rule broken.
EPROMDATABLOCK_EXPORT Outcome setTableCell(EepromImage& image, int index, quint32 row, quint32 col,
                                           double value);
// Sets one cell to a stored value as it is; an integer table takes integers only.
EPROMDATABLOCK_EXPORT Outcome setTableRaw(EepromImage& image, int index, quint32 row, quint32 col,
                                          double raw);

} // namespace Tupsim
