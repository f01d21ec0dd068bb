// Reads and sets the cells of an image's calibration tables through the catalogue's table
// classes.
#include "ImageTables.h"

#include "image/TableKinds.h"

namespace Tupsim {

namespace {

const tableKinds::TableKind* kindAt(const EepromImage& image, int index) {
    if (index < 0 || index >= image.blockCount() || image.block(index).isEnd)
        return nullptr;
    return tableKinds::find(image.block(index).id);
}

QString cellText(quint32 row, quint32 col) {
    return QStringLiteral("cell (%1, %2)").arg(row).arg(col);
}

Outcome setCell(EepromImage& image, int index, quint32 row, quint32 col, double value,
                bool scaled) {
    const tableKinds::TableKind* kind = kindAt(image, index);
    if (kind == nullptr)
        return Outcome::failure(ResultCode::UnknownBlock,
                                index < 0 || index >= image.blockCount()
                                    ? QStringLiteral("no block %1 in the image").arg(index)
                                    : QStringLiteral("block %1 (%2) is no calibration table")
                                          .arg(image.block(index).id)
                                          .arg(image.name(index)));
    const QString name = image.name(index);
    QByteArray result;
    QString rule;
    const TableEdit edit =
        kind->setCell(image.blockBytes(index), row, col, value, scaled, result, rule);
    if (edit == TableEdit::OutOfRange) {
        TableContent content;
        kind->content(image.blockBytes(index), content);
        return Outcome::failure(ResultCode::OutOfRange,
                                QStringLiteral("%1 is outside the %2*%3 cells of %4")
                                    .arg(cellText(row, col))
                                    .arg(content.shownRows())
                                    .arg(content.shownCols())
                                    .arg(name));
    }
    if (edit == TableEdit::DoesNotFit)
        return Outcome::failure(ResultCode::DoesNotFit,
                                QStringLiteral("%1 of %2: %3 does not fit the stored %4")
                                    .arg(cellText(row, col), name)
                                    .arg(value, 0, 'g', 17)
                                    .arg(rule));
    Outcome replaced = image.replaceBlock(index, result);
    if (!replaced.ok())
        replaced.message = QStringLiteral("cannot replace %1: %2").arg(name, replaced.message);
    return replaced;
}

} // namespace

bool isTable(const EepromImage& image, int index) {
    return kindAt(image, index) != nullptr;
}

bool readTable(const EepromImage& image, int index, TableContent& content) {
    const tableKinds::TableKind* kind = kindAt(image, index);
    if (kind == nullptr)
        return false;
    content = TableContent();
    kind->content(image.blockBytes(index), content);
    return true;
}

Outcome setTableCell(EepromImage& image, int index, quint32 row, quint32 col, double value) {
    return setCell(image, index, row, col, value, true);
}

Outcome setTableRaw(EepromImage& image, int index, quint32 row, quint32 col, double raw) {
    return setCell(image, index, row, col, raw, false);
}

} // namespace Tupsim
