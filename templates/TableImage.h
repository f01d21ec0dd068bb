// Type-independent work on a table image: counts, header, index column, descriptors, removals.
#pragma once

#include "templates/TableLayout.h"

#include <QByteArray>
#include <string>

namespace Tupsim {

class HwDatablock;

namespace detail {

class TableImage {
public:
    // `keepsChecksum` false: the checksum word is never recomputed by the setters.
    TableImage(HwDatablock& block, QByteArray& image, const TableLayout& layout,
               bool keepsChecksum);

    const TableLayout& layout() const { return shape; }
    // The id word of a block: its id plus its instance number, cut to 16 bits.
    static quint16 idWord(int blockId, int instance) {
        return static_cast<quint16>(static_cast<unsigned int>(blockId) +
                                    static_cast<unsigned int>(instance));
    }

    // A zeroed image of the block size with the id word and the size in the header.
    void initFresh(quint16 idWord);
    quint32 rowCount() const;
    quint32 colCount() const;
    void setRowCount(quint32 rows);
    void setColCount(quint32 cols);
    qint32 index(quint32 row) const;
    void setIndex(qint32 value, quint32 row);
    void appendDescriptor(int i, std::string& text) const;
    void setDescriptor(int i, const std::string& text);
    void removeValuesFromCol(quint32 row, quint32 firstCol, quint32 lastCol);
    void removeValuesFromRow(quint32 col, quint32 firstRow, quint32 lastRow);
    void refreshChecksum();

    // Loading a given image of the block size: the header and counts first, then (after the
    // typed cells) the index column and the descriptors.
    // `convert`: the byte-order conversion, which turns counts and index column (the 8-byte
    // header stays in the reference form, so that the block can always be told by its id).
    void loadHeader(const QByteArray& given, bool convert);
    void loadExtras(const QByteArray& given, bool convert);

    // Completes an image built from a file: header, counts and a checksum over all of it.
    void seal(QByteArray& built, quint16 idWord, quint32 rows, quint32 cols);

private:
    void fitImage();
    void storeCount(std::uint64_t offset, quint32 value);
    quint64 closeGap(quint64 start, quint64 stride, quint32 count, quint32 first, quint32 last);
    void moveCell(std::uint64_t from, std::uint64_t to);
    void zeroCell(std::uint64_t flat);

    HwDatablock& block;
    QByteArray& image;
    TableLayout shape;
    bool keepsChecksum;
};

} // namespace detail
} // namespace Tupsim
