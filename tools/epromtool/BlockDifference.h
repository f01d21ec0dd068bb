// How one block differs between two images.
#pragma once

#include <QString>
#include <QVector>

namespace epromtool {

struct HeaderChange {
    QString field; // "size", "checksum" or "alignment"
    int before = 0;
    int after = 0;
};

struct BlockDifference {
    enum Kind { Changed, Removed, Added };
    Kind kind = Changed;
    quint16 id = 0;
    int offsetA = -1; // -1: not in the first image
    int offsetB = -1; // -1: not in the second image
    int sizeA = 0;
    int sizeB = 0;
    QVector<HeaderChange> headerChanges;
    int bytesChanged = 0; // payload bytes behind the header that differ or exist in one only
};

} // namespace epromtool
