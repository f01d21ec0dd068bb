// How a calibration table changed between two images, counted in the table's own terms.
#pragma once

#include <QString>
#include <QtGlobal>

namespace epromtool {

struct TableChange {
    quint32 rowsBefore = 0;
    quint32 colsBefore = 0;
    quint32 rowsAfter = 0;
    quint32 colsAfter = 0;
    int cells = 0;       // cells within the capacity whose value differs
    int indexes = 0;     // row index words that differ (index tables)
    int descriptors = 0; // descriptors that differ (tables with descriptors)

    // "3 cells changed, counts 4*10 -> 4*11, 1 index changed".
    QString text() const;
    // For a read-back that should have changed nothing: "reads back 1 cell and the counts
    // differently", or "does not read back to the same bytes" when no cell, count, index or
    // descriptor tells the difference.
    QString differences() const;
};

} // namespace epromtool
