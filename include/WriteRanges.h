// The byte ranges a write has to touch: where two images differ, rounded out to the device's
// write unit.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Tupsim {

struct ByteRange {
    qint64 offset = 0;
    qint64 length = 0;
    qint64 end() const { return offset + length; }
    bool operator==(const ByteRange& other) const {
        return offset == other.offset && length == other.length;
    }
};

// The ranges where `before` and `after` differ, each widened to whole pages of `pageSize` bytes
// (the last one cut at the end of `after`), overlapping and touching ones merged, in order.
// Bytes that only one of the two has count as different. A page size below 1 counts as 1, which
// gives the differing bytes themselves.
EPROMDATABLOCK_EXPORT QVector<ByteRange> changedRanges(const QByteArray& before,
                                                       const QByteArray& after, int pageSize);

// How many pages of `pageSize` bytes the ranges cover, and how many bytes.
EPROMDATABLOCK_EXPORT qint64 pageCount(const QVector<ByteRange>& ranges, int pageSize);
EPROMDATABLOCK_EXPORT qint64 byteCount(const QVector<ByteRange>& ranges);

// "0x0100-0x011f, 0x0400-0x041f": the ranges with their first and last byte.
EPROMDATABLOCK_EXPORT QString rangesText(const QVector<ByteRange>& ranges);

} // namespace Tupsim
