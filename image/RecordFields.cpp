// The named fields of record blocks, read through their class's schema and set through its setters.
#include "RecordFields.h"

#include "BlockCatalogue.h"
#include "blocks/RecordSchema.h"
#include "blocks/ident/FieldCodec.h"
#include "core/BlockHeader.h"
#include "directory/Catalogue.h"

#include <QRegularExpression>
#include <memory>

namespace Tupsim {

namespace {

quint16 idOf(const QByteArray& block) {
    return header::read(block).id;
}

// The field table the catalogue gives `id`; nullptr for ids without named fields.
const records::RecordSchema* schemaOfId(quint16 id) {
    const catalogue::Entry* entry = catalogue::find(id);
    return entry == nullptr ? nullptr : entry->schema;
}

// The schema of `block`; nullptr when it has no named fields.
const records::RecordSchema* schemaOfBlock(const QByteArray& block) {
    return block.size() < header::Size ? nullptr : schemaOfId(idOf(block));
}

// The object of the block's class, loaded with its bytes; nullptr when the directory interprets
// the id with another class than the schema's.
std::unique_ptr<HwDatablock> objectOf(const records::RecordSchema& schema,
                                      const QByteArray& block) {
    std::unique_ptr<HwDatablock> object = blockCatalogue::makeBlock(idOf(block), block);
    if (object && !schema.isClass(*object))
        object.reset();
    return object;
}

// The bytes with the checksum word left out: what a setter decides.
QByteArray withoutChecksum(QByteArray block) {
    if (block.size() >= static_cast<int>(header::ChecksumOffset) + 2)
        block.remove(static_cast<int>(header::ChecksumOffset), 2);
    return block;
}

RecordValue typedValue(const records::Field& field, const records::Value& value) {
    RecordValue typed;
    switch (field.row->codec) {
    case records::Codec::Text:
        typed.type = RecordValue::Text;
        typed.text = value.text;
        break;
    case records::Codec::Date:
        typed.type = RecordValue::Date;
        typed.year =
            static_cast<int>(records::packedDate::year(static_cast<unsigned>(value.number)));
        typed.month =
            static_cast<int>(records::packedDate::month(static_cast<unsigned>(value.number)));
        typed.day = static_cast<int>(records::packedDate::day(static_cast<unsigned>(value.number)));
        break;
    case records::Codec::PartNumber:
        typed.type = RecordValue::PartNumber;
        typed.variant = static_cast<quint32>(value.second);
        break;
    default:
        typed.type = RecordValue::Number;
        break;
    }
    typed.number = value.number;
    return typed;
}

QString namesOf(const std::vector<records::Field>& fields) {
    QStringList names;
    for (const records::Field& field : fields)
        names << field.name;
    return names.join(QStringLiteral(", "));
}

} // namespace

namespace recordFields {

bool hasFields(quint16 id) {
    return schemaOfId(id) != nullptr;
}

QVector<RecordField> fields(const QByteArray& block) {
    QVector<RecordField> result;
    const records::RecordSchema* schema = schemaOfBlock(block);
    if (schema == nullptr)
        return result;
    const quint16 id = idOf(block);
    const QByteArray stored = withoutChecksum(block);
    // One object serves every field that reads back, since setting such a field changes nothing;
    // it is built again only after a field that does not.
    std::unique_ptr<HwDatablock> object;
    for (const records::Field& def : records::fieldsOf(*schema, block)) {
        const records::Value value = records::decode(def, block);
        RecordField field;
        field.name = def.name;
        field.label = QLatin1String(def.row->label);
        field.line = def.line;
        field.column = def.column;
        field.trailingBlanks =
            def.row->suffix != nullptr ? static_cast<int>(qstrlen(def.row->suffix(id))) : 0;
        const std::string printed = records::text(def, value);
        field.value = QString::fromLatin1(printed.data(), static_cast<int>(printed.size()));
        field.typed = typedValue(def, value);
        field.settable = def.row->set != nullptr;
        field.rule = field.settable ? records::rule(def)
                                    : QStringLiteral("read only: the block's class has no "
                                                     "setter for it");
        records::Value parsed;
        QString why;
        if (field.settable && records::parse(def, field.value, parsed, why)) {
            if (!object)
                object = objectOf(*schema, block);
            if (object) {
                def.row->set(*object, parsed, def.index);
                field.readsBack = withoutChecksum(object->getByteArrayData()) == stored;
                if (!field.readsBack)
                    object.reset();
            }
        }
        result << field;
    }
    return result;
}

Outcome setField(QByteArray& block, const QString& name, const QString& text) {
    const records::RecordSchema* schema = schemaOfBlock(block);
    if (schema == nullptr)
        return Outcome::failure(ResultCode::NoFields,
                                QStringLiteral("block %1 has no named fields").arg(idOf(block)));
    const std::vector<records::Field> defs = records::fieldsOf(*schema, block);
    const records::Field* def = nullptr;
    for (const records::Field& candidate : defs)
        if (candidate.name.compare(name, Qt::CaseInsensitive) == 0) {
            def = &candidate;
            break;
        }
    if (def == nullptr)
        return Outcome::failure(
            ResultCode::UnknownField,
            QStringLiteral("no field %1; the block has %2").arg(name, namesOf(defs)));
    if (block.size() < schema->recordSize)
        return Outcome::failure(ResultCode::Corrupt,
                                QStringLiteral("%1 cannot be set: the block has %2 bytes, its "
                                               "record %3")
                                    .arg(def->name)
                                    .arg(block.size())
                                    .arg(schema->recordSize));
    if (def->row->set == nullptr)
        return Outcome::failure(
            ResultCode::ReadOnly,
            QStringLiteral("%1 is read only: the block's class has no setter for it")
                .arg(def->name));
    records::Value value;
    QString why;
    if (!records::parse(*def, text, value, why))
        return Outcome::failure(ResultCode::DoesNotFit,
                                QStringLiteral("%1: '%2' %3; the field takes %4")
                                    .arg(def->name, text, why, records::rule(*def)));
    const std::unique_ptr<HwDatablock> object = objectOf(*schema, block);
    if (!object)
        return Outcome::failure(ResultCode::NoFields,
                                QStringLiteral("block %1 has no named fields").arg(idOf(block)));
    def->row->set(*object, value, def->index);
    block = object->getByteArrayData();
    return Outcome::success();
}

bool sectionValue(const QStringList& sectionLines, const RecordField& field, QString& value) {
    const QString start = field.label + QLatin1Char(':');
    int seen = 0;
    for (const QString& raw : sectionLines) {
        if (!raw.startsWith(start) || seen++ != field.line)
            continue;
        QString rest = raw.mid(start.size());
        if (rest.endsWith(QLatin1Char('\r')))
            rest.chop(1);
        int lead = 0;
        while (lead < rest.size() && rest[lead] == QLatin1Char(' '))
            ++lead;
        rest = rest.mid(lead);
        if (field.column >= 0) {
            static const QRegularExpression blanks(QStringLiteral("\\s+"));
            const QStringList parts = rest.split(blanks, Qt::SkipEmptyParts);
            if (field.column >= parts.size())
                return false;
            rest = parts[field.column];
        } else if (field.trailingBlanks > 0 &&
                   rest.endsWith(QString(field.trailingBlanks, QLatin1Char(' ')))) {
            rest.chop(field.trailingBlanks);
        }
        value = rest;
        return true;
    }
    return false;
}

QString fieldNames(const QByteArray& block) {
    const records::RecordSchema* schema = schemaOfBlock(block);
    return schema == nullptr ? QString() : namesOf(records::fieldsOf(*schema, block));
}

} // namespace recordFields
} // namespace Tupsim
