// Type-independent work on a table image: counts, header, index column, descriptors, removals.
#include "templates/TableImage.h"

#include "HwDatablock.h"
#include "core/FieldHooks.h"
#include "core/HwBytes.h"

#include <algorithm>
#include <cstring>

namespace Tupsim {
namespace detail {

namespace {

// Columns (or rows) in [from, to) that lie outside the removed range [first, last].
quint64 keptBetween(quint64 from, quint64 to, quint64 first, quint64 last) {
    const quint64 lo = std::max(from, first);
    const quint64 hi = std::min(to, last + 1);
    return (to - from) - (hi > lo ? hi - lo : 0);
}

} // namespace

TableImage::TableImage(HwDatablock& block, QByteArray& image, const TableLayout& layout,
                       bool keepsChecksum)
    : block(block), image(image), shape(layout), keepsChecksum(keepsChecksum) {}

void TableImage::initFresh(quint16 idWord) {
    image = QByteArray(static_cast<int>(shape.blockSize()), '\0');
    bytes::putLE<quint16>(image, 0, idWord);
    bytes::putLE<quint16>(image, 2, static_cast<quint16>(shape.blockSize()));
}

quint32 TableImage::rowCount() const {
    return bytes::getLE<quint32>(image, shape.rowCountOffset());
}

quint32 TableImage::colCount() const {
    return bytes::getLE<quint32>(image, shape.colCountOffset());
}

void TableImage::storeCount(std::uint64_t offset, quint32 value) {
    if (fieldhooks::store<quint32>(image, offset, value))
        refreshChecksum();
}

void TableImage::setRowCount(quint32 rows) {
    storeCount(shape.rowCountOffset(), rows);
}

void TableImage::setColCount(quint32 cols) {
    storeCount(shape.colCountOffset(), cols);
}

qint32 TableImage::index(quint32 row) const {
    if (!shape.hasIndex)
        return 0;
    return fieldhooks::load<qint32>(image, shape.indexOffset() + 4ull * row);
}

void TableImage::setIndex(qint32 value, quint32 row) {
    // A row past the capacity lies past the end of the image: nothing is written there.
    if (shape.hasIndex && fieldhooks::store<qint32>(image, shape.indexOffset() + 4ull * row, value))
        refreshChecksum();
}

void TableImage::appendDescriptor(int i, std::string& text) const {
    if (i < 0 || static_cast<quint32>(i) >= shape.descriptorCount)
        return;
    char raw[TableLayout::kDescriptorSize];
    if (bytes::copyOut(image, shape.descriptorOffset(i), raw, sizeof raw))
        text.append(raw, sizeof raw);
}

void TableImage::setDescriptor(int i, const std::string& text) {
    if (i < 0 || static_cast<quint32>(i) >= shape.descriptorCount)
        return;
    // Only the given characters are replaced; the rest of the 16 bytes stays as it was.
    const std::size_t length = std::min<std::size_t>(text.size(), TableLayout::kDescriptorSize);
    if (bytes::copyIn(image, shape.descriptorOffset(i), text.data(), length))
        refreshChecksum();
}

void TableImage::moveCell(std::uint64_t from, std::uint64_t to) {
    std::uint64_t source = 0;
    std::uint64_t target = 0;
    if (!shape.flatOffset(to, target) || from == to)
        return;
    char cell[8] = {0};
    if (shape.flatOffset(from, source))
        bytes::copyOut(image, source, cell, shape.rawSize);
    bytes::copyIn(image, target, cell, shape.rawSize);
}

void TableImage::zeroCell(std::uint64_t flat) {
    std::uint64_t target = 0;
    const char zeros[8] = {0};
    if (shape.flatOffset(flat, target))
        bytes::copyIn(image, target, zeros, shape.rawSize);
}

// Cells are addressed row-major over the whole value array, so a column past the column
// capacity reaches into the following row; nothing past the value array is touched. Positions
// along the line are start + i * stride; returns how many cells were kept.
quint64 TableImage::closeGap(quint64 start, quint64 stride, quint32 count, quint32 first,
                             quint32 last) {
    const auto at = [start, stride](quint64 i) { return start + i * stride; };
    quint64 kept = 0;
    for (quint64 i = 0; i < count; ++i) {
        if (at(i) >= shape.cellCount()) {
            // Past the value array every cell reads 0: the rest only moves zeros down.
            const quint64 rest = keptBetween(i, count, first, last);
            for (quint64 k = kept; k < kept + rest && at(k) < shape.cellCount(); ++k)
                zeroCell(at(k));
            return kept + rest;
        }
        if (i < first || i > last)
            moveCell(at(i), at(kept++));
    }
    return kept;
}

void TableImage::removeValuesFromCol(quint32 row, quint32 firstCol, quint32 lastCol) {
    const quint64 start = quint64(row) * shape.maxCols;
    const quint64 kept = closeGap(start, 1, colCount(), firstCol, lastCol);
    // The fill deliberately runs up to the row capacity, not the column capacity.
    for (quint64 col = kept; col < shape.maxRows; ++col)
        zeroCell(start + col);
    // A too-short image (a kept prototype) has no table: nothing was changed.
    if (bytes::putLE<quint32>(image, shape.colCountOffset(), static_cast<quint32>(kept)))
        refreshChecksum();
}

void TableImage::removeValuesFromRow(quint32 col, quint32 firstRow, quint32 lastRow) {
    const quint64 kept = closeGap(col, shape.maxCols, rowCount(), firstRow, lastRow);
    for (quint64 row = kept; row < shape.maxRows; ++row)
        zeroCell(row * shape.maxCols + col);
    if (bytes::putLE<quint32>(image, shape.rowCountOffset(), static_cast<quint32>(kept)))
        refreshChecksum();
}

void TableImage::refreshChecksum() {
    if (keepsChecksum)
        block.setChecksum(block.computeChecksum());
}

void TableImage::fitImage() {
    const int size = static_cast<int>(shape.blockSize());
    const int old = image.size();
    image.resize(size);
    if (size > old)
        std::memset(image.data() + old, 0, static_cast<std::size_t>(size - old));
}

// A count or index word of `given`, as the load takes it.
static quint32 takenWord(const QByteArray& given, std::uint64_t offset, bool convert) {
    return convert ? fieldhooks::asHeld<quint32>(given, offset)
                   : fieldhooks::load<quint32>(given, offset);
}

void TableImage::loadHeader(const QByteArray& given, bool convert) {
    fitImage();
    const unsigned short size = static_cast<unsigned short>(shape.blockSize());
    const quint16 id = bytes::getLE<quint16>(given, 0);
    if (keepsChecksum) {
        block.setBlockSize(size);
        block.setBlockId(id);
        block.setAlignment(0);
    } else {
        bytes::putLE<quint16>(image, 2, size);
        bytes::putLE<quint16>(image, 0, id);
        bytes::putLE<quint16>(image, 6, 0);
    }
    setRowCount(takenWord(given, shape.rowCountOffset(), convert));
    setColCount(takenWord(given, shape.colCountOffset(), convert));
}

void TableImage::loadExtras(const QByteArray& given, bool convert) {
    for (quint32 row = 0; shape.hasIndex && row < shape.maxRows; ++row) {
        const std::uint64_t offset = shape.indexOffset() + 4ull * row;
        fieldhooks::store<qint32>(image, offset,
                                  static_cast<qint32>(takenWord(given, offset, convert)));
    }
    // Descriptors are text: no byte order to convert.
    const std::uint64_t width = std::uint64_t(shape.descriptorCount) * TableLayout::kDescriptorSize;
    if (width != 0 &&
        bytes::fits(static_cast<std::uint64_t>(given.size()), TableLayout::kHeaderSize, width))
        bytes::copyIn(image, TableLayout::kHeaderSize, given.constData() + TableLayout::kHeaderSize,
                      width);
}

void TableImage::seal(QByteArray& built, quint16 idWord, quint32 rows, quint32 cols) {
    const quint16 size = static_cast<quint16>(shape.blockSize());
    built.resize(static_cast<int>(size));
    bytes::putLE<quint16>(built, 0, idWord);
    bytes::putLE<quint16>(built, 2, size);
    bytes::putLE<quint16>(built, 6, 0);
    bytes::putLE<quint32>(built, shape.rowCountOffset(), rows);
    bytes::putLE<quint32>(built, shape.colCountOffset(), cols);
    bytes::putLE<quint16>(built, 4, 0);
    const unsigned short sum =
        block.computeChecksum(reinterpret_cast<unsigned short*>(built.data()), size);
    bytes::putLE<quint16>(built, 4, sum);
}

} // namespace detail
} // namespace Tupsim
