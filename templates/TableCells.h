// Read-only view of a table's counts and scaled cells, as the text writers see it.
#pragma once

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
    // What the image holds: printing stops here, whatever the counts say.
    virtual quint32 rowCapacity() const = 0;
    virtual quint32 colCapacity() const = 0;
    quint32 shownRows() const { return rowCount() < rowCapacity() ? rowCount() : rowCapacity(); }
    quint32 shownCols() const { return colCount() < colCapacity() ? colCount() : colCapacity(); }
};

} // namespace detail
} // namespace Tupsim
