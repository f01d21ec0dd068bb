// One calibration table of an image as people look at it: its cells with their row labels,
// the frequency axis its columns belong to (from the catalogue's pairing, checked against the
// image), and the lines a plot of it draws.
#pragma once

#include "EepromImage.h"
#include "ImageTables.h"

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

namespace Tupsim {

// The frequency axis of a table: the points of its partner vector.
struct TableAxis {
    quint16 id = 0; // the partner vector's id in the catalogue; 0 when the table has none
    QString name;   // "RFBO_ALC_FREQ"
    int index = -1; // the partner's block in the image; -1 when the image holds none
    // The partner's points in Hz, its factor applied; filled only when they match the table's
    // columns one to one.
    std::vector<double> hz;
    // Why a table that has a partner in the catalogue has no axis here: "no RFBO_ALC_FREQ
    // (id 15730) in the image", "RFBO_ALC_FREQ holds 9 points for 10 columns". Empty otherwise.
    QString problem;
    bool ascending = true; // every point above the one before

    bool present() const { return problem.isEmpty() && id != 0; }
};

// One line of a plot: y over x, both with one value per point.
struct PlotLine {
    QString label; // "row 1", "index 10", "values"
    std::vector<double> x;
    std::vector<double> y;
};

struct EPROMDATABLOCK_EXPORT TableView {
    int index = -1; // the block in the image
    int offset = 0;
    quint16 id = 0;
    QString name;
    TableContent content;
    TableAxis axis;
    bool isAxis = false;   // the table is the frequency vector of another: its values are Hz
    int decimals = 3;      // of a cell as the calibration text prints it
    QStringList rowLabels; // per row of the cells: the row index of an index table, else 1, 2, ...

    // A vector (one column of capacity) plots one line over its rows; any other table one
    // line per row over its columns, against the axis in Hz where there is one, else the
    // column numbers from 1.
    bool isVector() const { return content.maxCols == 1; }
    QString xUnit() const; // "Hz" or "" (point numbers)
    std::vector<PlotLine> lines() const;

    // Cell (row, col) of the shown cells, factor applied, as the calibration text prints it.
    std::string cellText(quint32 row, quint32 col) const;
    // An axis point in Hz as its vector prints it.
    std::string axisText(quint32 col) const;
};

namespace tableView {

// The frequency vector the catalogue pairs with table `id`; 0 when it has none.
EPROMDATABLOCK_EXPORT quint16 axisOf(quint16 id);
// The table of block `index` with its axis: the n-th table of an id pairs with the n-th vector
// of its partner's id. False when the block is no calibration table of the catalogue.
EPROMDATABLOCK_EXPORT bool view(const EepromImage& image, int index, TableView& view);
// Every table of the image in chain order, until the views hold `cellLimit` cells (a table
// counts at least one) or `tableLimit` tables; returns how many tables were left out.
EPROMDATABLOCK_EXPORT int viewAll(const EepromImage& image, std::vector<TableView>& views,
                                  std::size_t cellLimit, std::size_t tableLimit);
// A frequency as "10 MHz", "1.5 GHz", "900 kHz", "12 Hz": the largest unit that keeps the
// number at or above 1, at most six significant digits.
EPROMDATABLOCK_EXPORT QString frequencyText(double hz);

} // namespace tableView
} // namespace Tupsim
