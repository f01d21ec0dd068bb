// How a calibration table changed between two images, counted in the table's own terms.
#include "TableChange.h"

#include <QStringList>

namespace epromtool {

namespace {

QString counted(int count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

QString counts(quint32 rows, quint32 cols) {
    return QStringLiteral("%1*%2").arg(rows).arg(cols);
}

} // namespace

QString TableChange::text() const {
    QString line = counted(cells, "cell", "cells") + QStringLiteral(" changed");
    if (rowsBefore != rowsAfter || colsBefore != colsAfter)
        line += QStringLiteral(", counts %1 -> %2")
                    .arg(counts(rowsBefore, colsBefore), counts(rowsAfter, colsAfter));
    if (indexes > 0)
        line += QStringLiteral(", ") + counted(indexes, "index", "indexes") +
                QStringLiteral(" changed");
    if (descriptors > 0)
        line += QStringLiteral(", ") + counted(descriptors, "descriptor", "descriptors") +
                QStringLiteral(" changed");
    return line;
}

QString TableChange::differences() const {
    QStringList parts;
    if (cells > 0)
        parts << counted(cells, "cell", "cells");
    if (rowsBefore != rowsAfter || colsBefore != colsAfter)
        parts << QStringLiteral("the counts");
    if (indexes > 0)
        parts << counted(indexes, "index", "indexes");
    if (descriptors > 0)
        parts << counted(descriptors, "descriptor", "descriptors");
    if (parts.isEmpty())
        return QStringLiteral("does not read back to the same bytes");
    return QStringLiteral("reads back %1 differently").arg(parts.join(QStringLiteral(" and ")));
}

} // namespace epromtool
