// Setting named fields of one record block of an image, all or nothing.
#include "RecordEdit.h"

#include "core/BlockHeader.h"

#include <QSet>

namespace Tupsim {

namespace {

QString valueOf(const QVector<RecordField>& fields, const QString& name) {
    for (const RecordField& field : fields)
        if (field.name == name)
            return field.value;
    return QString();
}

QString canonicalName(const QVector<RecordField>& fields, const QString& name) {
    for (const RecordField& field : fields)
        if (field.name.compare(name, Qt::CaseInsensitive) == 0)
            return field.name;
    return name;
}

} // namespace

bool parseAssignment(const QString& text, FieldAssignment& assignment, QString& error) {
    const int equals = text.indexOf(QLatin1Char('='));
    if (equals < 0) {
        error = QStringLiteral("'%1' is not an assignment FIELD=VALUE").arg(text);
        return false;
    }
    const QString field = text.left(equals);
    if (field.trimmed().isEmpty()) {
        error = QStringLiteral("'%1' names no field").arg(text);
        return false;
    }
    if (text.mid(equals + 1).startsWith(QLatin1Char('='))) {
        error = QStringLiteral("'%1' has '==': write FIELD=VALUE").arg(text);
        return false;
    }
    assignment.field = field;
    assignment.value = text.mid(equals + 1);
    return true;
}

RecordEdit planRecordEdit(const EepromImage& image, quint16 id, int occurrence,
                          const QVector<FieldAssignment>& assignments) {
    RecordEdit edit;
    if (image.chainBroken()) {
        edit.error = QStringLiteral("the chain is broken");
        return edit;
    }
    if (assignments.isEmpty()) {
        edit.error = QStringLiteral("no field to set");
        return edit;
    }
    int count = 0;
    for (int i = image.find(id); i >= 0; i = image.find(id, i + 1))
        if (++count == occurrence)
            edit.index = i;
    if (count == 0) {
        edit.error = QStringLiteral("no block with id %1").arg(id);
        return edit;
    }
    if (edit.index < 0) {
        edit.error = QStringLiteral("block %1 number %2 asked for, the image has %3")
                         .arg(id)
                         .arg(occurrence)
                         .arg(count);
        return edit;
    }
    const ImageBlock& entry = image.block(edit.index);
    edit.id = id;
    edit.offset = entry.offset;
    edit.name = image.name(edit.index);
    edit.before = image.blockBytes(edit.index);
    edit.checksumBefore = header::read(edit.before).checksum;
    const QVector<RecordField> fields = recordFields::fields(edit.before);
    if (fields.isEmpty()) {
        edit.error =
            QStringLiteral("block %1 (%2) is a %3 block without named fields")
                .arg(id)
                .arg(edit.name)
                .arg(QLatin1String(blockCatalogue::kindName(image.kindOf(edit.index).kind)));
        return edit;
    }
    QByteArray block = edit.before;
    QSet<QString> seen;
    for (const FieldAssignment& assignment : assignments) {
        const QString name = canonicalName(fields, assignment.field);
        if (seen.contains(name)) {
            edit.error = QStringLiteral("%1 is assigned twice").arg(name);
            return edit;
        }
        seen.insert(name);
        const Outcome set = recordFields::setField(block, assignment.field, assignment.value);
        if (!set.ok()) {
            edit.error = QStringLiteral("block %1: %2").arg(id).arg(set.message);
            return edit;
        }
        edit.changes.append({name, valueOf(fields, name), QString()});
    }
    const QVector<RecordField> after = recordFields::fields(block);
    for (FieldChange& change : edit.changes)
        change.after = valueOf(after, change.field);
    edit.after = block;
    edit.checksumAfter = header::read(block).checksum;
    edit.ok = true;
    return edit;
}

bool applyRecordEdit(EepromImage& image, const RecordEdit& edit, QString& error) {
    if (!edit.ok) {
        error = edit.error;
        return false;
    }
    if (!edit.changed())
        return true;
    return image.replaceBlock(edit.index, edit.after, error);
}

} // namespace Tupsim
