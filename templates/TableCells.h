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
    // The rows and columns of the table's capacity, whatever the counts say.
    virtual quint32 rowCapacity() const = 0;
    virtual quint32 colCapacity() const = 0;
    // The rows of the capacity whose cells all lie in the image (a block loaded from a short
    // image holds fewer).
    virtual quint32 rowsHeld() const = 0;
};

} // namespace detail
} // namespace Tupsim
