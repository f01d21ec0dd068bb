// Where two images differ, rounded out to the device's write unit.
#include "WriteRanges.h"

#include <QStringList>

namespace Tupsim {

QVector<ByteRange> changedRanges(const QByteArray& before, const QByteArray& after, int pageSize) {
    const qint64 unit = qMax(pageSize, 1);
    const qint64 common = qMin(before.size(), after.size());
    const qint64 size = after.size();
    QVector<ByteRange> ranges;
    const auto add = [&](qint64 first, qint64 end) {
        const qint64 start = first / unit * unit;
        const qint64 stop = qMin(size, (end + unit - 1) / unit * unit);
        if (!ranges.isEmpty() && ranges.last().end() >= start)
            ranges.last().length = qMax(ranges.last().end(), stop) - ranges.last().offset;
        else
            ranges.append({start, stop - start});
    };
    const char* a = before.constData();
    const char* b = after.constData();
    qint64 i = 0;
    while (i < common) {
        if (a[i] == b[i]) {
            ++i;
            continue;
        }
        const qint64 first = i;
        while (i < common && a[i] != b[i])
            ++i;
        add(first, i);
    }
    // A longer `after` is new from the end of `before` on; a shorter one has nothing to write.
    if (size > common)
        add(common, size);
    return ranges;
}

qint64 pageCount(const QVector<ByteRange>& ranges, int pageSize) {
    const qint64 unit = qMax(pageSize, 1);
    qint64 pages = 0;
    for (const ByteRange& range : ranges)
        pages += (range.end() + unit - 1) / unit - range.offset / unit;
    return pages;
}

qint64 byteCount(const QVector<ByteRange>& ranges) {
    qint64 bytes = 0;
    for (const ByteRange& range : ranges)
        bytes += range.length;
    return bytes;
}

QString rangesText(const QVector<ByteRange>& ranges) {
    QStringList parts;
    for (const ByteRange& range : ranges)
        parts << QStringLiteral("0x%1-0x%2")
                     .arg(range.offset, 4, 16, QLatin1Char('0'))
                     .arg(range.end() - 1, 4, 16, QLatin1Char('0'));
    return parts.join(QStringLiteral(", "));
}

} // namespace Tupsim
