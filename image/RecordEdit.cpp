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

Outcome parseAssignment(const QString& text, FieldAssignment& assignment) {
    const auto bad = [](const QString& why) {
        return Outcome::failure(ResultCode::BadAssignment, why);
    };
    const int equals = text.indexOf(QLatin1Char('='));
    if (equals < 0)
        return bad(QStringLiteral("'%1' is not an assignment FIELD=VALUE").arg(text));
    const QString field = text.left(equals);
    if (field.trimmed().isEmpty())
        return bad(QStringLiteral("'%1' names no field").arg(text));
    if (text.mid(equals + 1).startsWith(QLatin1Char('=')))
        return bad(QStringLiteral("'%1' has '==': write FIELD=VALUE").arg(text));
    assignment.field = field;
    assignment.value = text.mid(equals + 1);
    return Outcome::success();
}

RecordEdit planRecordEdit(const EepromImage& image, quint16 id, int occurrence,
                          const QVector<FieldAssignment>& assignments) {
    RecordEdit edit;
    const auto refuse = [&edit](ResultCode code, const QString& why) {
        edit.outcome = Outcome::failure(code, why);
        return edit;
    };
    if (image.chainBroken())
        return refuse(ResultCode::ChainBroken, QStringLiteral("the chain is broken"));
    if (assignments.isEmpty())
        return refuse(ResultCode::BadAssignment, QStringLiteral("no field to set"));
    int count = 0;
    for (int i = image.find(id); i >= 0; i = image.find(id, i + 1))
        if (++count == occurrence)
            edit.index = i;
    if (count == 0)
        return refuse(ResultCode::UnknownBlock, QStringLiteral("no block with id %1").arg(id));
    if (edit.index < 0)
        return refuse(ResultCode::UnknownBlock,
                      QStringLiteral("block %1 number %2 asked for, the image has %3")
                          .arg(id)
                          .arg(occurrence)
                          .arg(count));
    const ImageBlock& entry = image.block(edit.index);
    edit.id = id;
    edit.offset = entry.offset;
    edit.name = image.name(edit.index);
    edit.before = image.blockBytes(edit.index);
    edit.checksumBefore = header::read(edit.before).checksum;
    const QVector<RecordField> fields = recordFields::fields(edit.before);
    if (fields.isEmpty())
        return refuse(
            ResultCode::NoFields,
            QStringLiteral("block %1 (%2) is a %3 block without named fields")
                .arg(id)
                .arg(edit.name)
                .arg(QLatin1String(blockCatalogue::kindName(image.kindOf(edit.index).kind))));
    QByteArray block = edit.before;
    QSet<QString> seen;
    for (const FieldAssignment& assignment : assignments) {
        const QString name = canonicalName(fields, assignment.field);
        if (seen.contains(name))
            return refuse(ResultCode::BadAssignment,
                          QStringLiteral("%1 is assigned twice").arg(name));
        seen.insert(name);
        const Outcome set = recordFields::setField(block, assignment.field, assignment.value);
        if (!set.ok())
            return refuse(set.code, QStringLiteral("block %1: %2").arg(id).arg(set.message));
        edit.changes.append({name, valueOf(fields, name), QString()});
    }
    const QVector<RecordField> after = recordFields::fields(block);
    for (FieldChange& change : edit.changes)
        change.after = valueOf(after, change.field);
    edit.after = block;
    edit.checksumAfter = header::read(block).checksum;
    if (edit.changed())
        edit.replace.insert(edit.index, block);
    return edit;
}

} // namespace Tupsim
