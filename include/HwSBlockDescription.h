// One table of a self-describing image: its shape, identifier and column types, and its bytes.
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <vector>

namespace Tupsim {

struct HwSBlockDescription {
    quint32 rowCount = 0;
    quint32 colCount = 0;
    quint32 rowIdType = 0; // ETypeId codes
    quint32 colIdType = 0;
    std::vector<quint32> colTypes;
    // Identifiers back to back in image order; a STRING identifier keeps its terminating zero.
    QByteArray rowIds;
    QByteArray colIds;
    // values[column][row]: the element's bytes in host order; a STRING without its zero.
    std::vector<std::vector<QByteArray>> values;

    bool operator==(const HwSBlockDescription& o) const {
        return rowCount == o.rowCount && colCount == o.colCount && rowIdType == o.rowIdType &&
               colIdType == o.colIdType && colTypes == o.colTypes && rowIds == o.rowIds &&
               colIds == o.colIds && values == o.values;
    }
    bool operator!=(const HwSBlockDescription& o) const { return !(*this == o); }
};

} // namespace Tupsim
