// Drives one concrete table block class for the tool: print, read back, shape, compare.
#pragma once

#include "BlockImage.h"
#include "TableKind.h"

#include <HwCalibTableBlocks.h>
#include <cstring>

namespace epromtool {

namespace tableBase {

struct Capacity {
    quint32 rows;
    quint32 cols;
};

// Deduced from the template a class derives from.
template <typename R, typename V, unsigned int Rows, unsigned int Cols>
Capacity of(Tupsim::HwDatablockBaseTemplate<R, V, Rows, Cols>*) {
    return {Rows, Cols};
}
template <typename R, typename V, unsigned int Rows, unsigned int Cols>
Capacity of(Tupsim::HwDatablockBaseTemplateIndex<R, V, Rows, Cols>*) {
    return {Rows, Cols};
}
template <typename R, typename V, unsigned int D, unsigned int Rows, unsigned int Cols>
Capacity of(Tupsim::HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>*) {
    return {Rows, Cols};
}

// What a table holds besides its cells: the plain table nothing, the index table its row
// indexes, the table with descriptors its descriptors.
inline void compareExtras(Tupsim::HwDatablock&, Tupsim::HwDatablock&, TableChange&) {}

template <typename R, typename V, unsigned int Rows, unsigned int Cols>
void compareExtras(Tupsim::HwDatablockBaseTemplateIndex<R, V, Rows, Cols>& a,
                   Tupsim::HwDatablockBaseTemplateIndex<R, V, Rows, Cols>& b, TableChange& change) {
    for (unsigned int row = 0; row < Rows; ++row)
        change.indexes += a.getIndex(row) != b.getIndex(row) ? 1 : 0;
}

template <typename R, typename V, unsigned int D, unsigned int Rows, unsigned int Cols>
void compareExtras(Tupsim::HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>& a,
                   Tupsim::HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>& b,
                   TableChange& change) {
    for (unsigned int i = 0; i < D; ++i) {
        std::string before;
        std::string after;
        a.getDescriptor(static_cast<int>(i), before);
        b.getDescriptor(static_cast<int>(i), after);
        change.descriptors += before != after ? 1 : 0;
    }
}

} // namespace tableBase

template <class Block> class TableAdapter {
public:
    static TableKind kind(const char* className, quint16 id) {
        return {className, id, &print, &read, &shape, &compare, &merge};
    }

private:
    static void print(const QByteArray& image, std::ostream& out) {
        Block block(false);
        loadImage(block, image);
        block.printToStream(out);
    }

    static QByteArray read(std::istream& in) {
        Block block(false);
        // Should the reader load nothing, the id tells: no block of this kind has id 0.
        block.setBlockId(0);
        block.searchascii(in, block);
        return block.getByteArrayData();
    }

    static TableShape shape(const QByteArray& image) {
        Block block(false);
        loadImage(block, image);
        const tableBase::Capacity most = tableBase::of(static_cast<Block*>(nullptr));
        TableShape shape;
        shape.imageSize = static_cast<int>(sizeof(typename Block::HwSDatablock));
        shape.rows = block.getRowCount();
        shape.cols = block.getColCount();
        shape.maxRows = most.rows;
        shape.maxCols = most.cols;
        return shape;
    }

    static TableChange compare(const QByteArray& before, const QByteArray& after) {
        Block a(false);
        Block b(false);
        loadImage(a, before);
        loadImage(b, after);
        TableChange change;
        change.rowsBefore = a.getRowCount();
        change.colsBefore = a.getColCount();
        change.rowsAfter = b.getRowCount();
        change.colsAfter = b.getColCount();
        const tableBase::Capacity most = tableBase::of(static_cast<Block*>(nullptr));
        for (unsigned int row = 0; row < most.rows; ++row)
            for (unsigned int col = 0; col < most.cols; ++col) {
                const auto x = a.getCalValue(row, col);
                const auto y = b.getCalValue(row, col);
                // Two NaNs are the same stored value.
                change.cells += (x == y || (x != x && y != y)) ? 0 : 1;
            }
        tableBase::compareExtras(a, b, change);
        return change;
    }

    static QByteArray merge(const QByteArray& stored, const QByteArray& unedited,
                            const QByteArray& edited) {
        Block result(false);
        Block before(false);
        Block after(false);
        loadImage(result, stored);
        loadImage(before, unedited);
        loadImage(after, edited);
        if (after.getRowCount() != before.getRowCount())
            result.setRowCount(after.getRowCount());
        if (after.getColCount() != before.getColCount())
            result.setColCount(after.getColCount());
        const tableBase::Capacity most = tableBase::of(static_cast<Block*>(nullptr));
        auto* was = before.getBlock();
        auto* now = after.getBlock();
        for (unsigned int row = 0; row < most.rows; ++row)
            for (unsigned int col = 0; col < most.cols; ++col)
                if (std::memcmp(&was->values[row][col], &now->values[row][col],
                                sizeof now->values[row][col]) != 0)
                    result.setCalValue(now->values[row][col], row, col);
        return result.getByteArrayData();
    }
};

} // namespace epromtool
