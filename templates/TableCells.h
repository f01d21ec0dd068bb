// Read-only view of a table's counts and scaled cells, as the text writers see it.
#pragma once

#include <algorithm>

#include <QtGlobal>

namespace Tupsim {
namespace detail {

class TableCells {
public:
    virtual ~TableCells() = default;
    virtual quint32 rowCount() const = 0;
    virtual quint32 colCount() const = 0;
    // The handed-out value of a cell widened to double; 0 outside the capacity.
    virtual double cell(quint32 row, quint32 col) const = 0;
    // The index word of a row in tables that carry one, else 0.
    virtual qint32 rowIndex(quint32 row) const = 0;
    // What the image holds. A table prints as many cells as its counts say while they fit in
    // that many cells; beyond it, each count is cut to the capacity.
    virtual quint32 rowCapacity() const = 0;
    virtual quint32 colCapacity() const = 0;
    quint32 shownRows() const {
        return fitsCapacity() ? rowCount() : std::min(rowCount(), rowCapacity());
    }
    quint32 shownCols() const {
        return fitsCapacity() ? colCount() : std::min(colCount(), colCapacity());
    }
    bool fitsCapacity() const {
        const quint64 cells =
            quint64(std::max<quint32>(rowCount(), 1)) * std::max<quint32>(colCount(), 1);
        return cells <= quint64(rowCapacity()) * colCapacity();
    }
};

} // namespace detail
} // namespace Tupsim
