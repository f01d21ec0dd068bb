// The calibration block classes the library declares in its catalogue lists, by block id.
#pragma once

#include "TableKind.h"

#include <QString>

namespace epromtool {

class TableKinds {
public:
    // The table kind whose block id this is; nullptr when there is none.
    static const TableKind* find(quint16 id);
};

} // namespace epromtool
