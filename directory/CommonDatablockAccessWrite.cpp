// Builds a self-describing image from table descriptions: the inverse of the walk.
#include "CommonDatablockAccess.h"

#include "HwDatablock2Edition.h"
#include "core/HwBytes.h"
#include "directory/SelfDescribingLayout.h"

namespace Tupsim {

namespace {

constexpr int MaxBlockSize = 0xFFFF;

void pad(QByteArray& image) {
    image.append(static_cast<int>(layout::padLength(quint64(image.size()), layout::PadUnit)), '\0');
}

void appendWordBE(QByteArray& image, quint16 value) {
    image.append(static_cast<char>(value >> 8));
    image.append(static_cast<char>(value & 0xFF));
}

// One element in its image form: fixed widths cut or zero-filled, a STRING with its zero.
void appendElement(QByteArray& image, quint32 type, const QByteArray& value) {
    if (type == STRING) {
        const int end = value.indexOf('\0');
        image.append(end < 0 ? value : value.left(end));
        image.append('\0');
        return;
    }
    const int width = static_cast<int>(layout::elementWidth(type));
    image.append(value.left(width));
    image.append(width - std::min(width, value.size()), '\0');
}

// Appends `count` identifiers; false when they cannot fit a block.
bool appendIdentifiers(QByteArray& image, quint32 type, const QByteArray& ids, quint32 count) {
    if (type == STRING) {
        const QList<QByteArray> pieces = ids.split('\0'); // the last piece follows the last zero
        for (quint32 i = 0; i < count && image.size() <= MaxBlockSize; ++i)
            appendElement(image, type,
                          i + 1 < quint32(pieces.size()) ? pieces[int(i)] : QByteArray());
        return image.size() <= MaxBlockSize;
    }
    const quint64 total = quint64(layout::elementWidth(type)) * count;
    if (quint64(image.size()) + total > MaxBlockSize)
        return false;
    image.append(ids.left(int(total)));
    image.append(int(total) - std::min(int(total), ids.size()), '\0');
    return true;
}

// Appends one table; false when it cannot be described in a block.
bool appendTable(QByteArray& image, const HwSBlockDescription& table) {
    if (table.rowCount > 0xFFFF || table.colCount > 0xFFFF)
        return false;
    appendWordBE(image, static_cast<quint16>(table.rowCount));
    appendWordBE(image, static_cast<quint16>(table.colCount));
    image.append(static_cast<char>(table.rowIdType));
    image.append(static_cast<char>(table.colIdType));
    std::vector<quint32> types(table.colCount, NONE);
    std::copy_n(table.colTypes.begin(), std::min<std::size_t>(types.size(), table.colTypes.size()),
                types.begin());
    for (quint32 type : types)
        image.append(static_cast<char>(type));
    pad(image);
    // Identifier runs are padded whenever their type is set, even when they are empty.
    if (table.rowIdType != NONE) {
        if (!appendIdentifiers(image, table.rowIdType, table.rowIds, table.rowCount))
            return false;
        pad(image);
    }
    if (table.colIdType != NONE) {
        if (!appendIdentifiers(image, table.colIdType, table.colIds, table.colCount))
            return false;
        pad(image);
    }
    std::vector<quint32> sized;
    for (quint32 column = 0; column < table.colCount; ++column)
        if (layout::takesBytes(types[column]))
            sized.push_back(column);
    for (quint32 row = 0; !sized.empty() && row < table.rowCount; ++row) {
        for (quint32 column : sized) {
            const bool held = column < table.values.size() && row < table.values[column].size();
            appendElement(image, types[column], held ? table.values[column][row] : QByteArray());
        }
        if (image.size() > MaxBlockSize)
            return false;
    }
    return image.size() <= MaxBlockSize;
}

} // namespace

QByteArray CommonDatablockAccess::write(unsigned short id, unsigned short index) const {
    QByteArray image(int(layout::FirstTableOffset), '\0');
    for (unsigned int block = 0; block + 1 < descriptions.size(); ++block)
        if (!appendTable(image, descriptions[block]))
            return QByteArray();
    pad(image); // whole words for the checksum; too short to start another table
    if (image.size() > MaxBlockSize)
        return QByteArray();
    bytes::putLE<quint16>(image, 0, id);
    bytes::putLE<quint16>(image, 2, static_cast<quint16>(image.size()));
    bytes::putBE<quint16>(image, layout::UpdateIndexOffset, index);

    // The CRC-32 leaves bytes 4 to 11 out; the 16-bit checksum covers it, so it comes last.
    HwDatablock2Edition block;
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
    block.setChecksum32(block.computeChecksum32());
    block.setChecksum(block.computeChecksum());
    return block.getByteArrayData();
}

} // namespace Tupsim
