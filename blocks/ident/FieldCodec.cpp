// The codecs of record fields: printed text, typed value and reading back.
#include "blocks/ident/FieldCodec.h"

#include "blocks/ident/BlockFields.h"
#include "core/HwBytes.h"

#include <QDate>
#include <QRegularExpression>
#include <algorithm>

namespace Tupsim {
namespace records {

using blockfields::format;

std::string packedDate::text(unsigned packed) {
    return format("%u-%02u-%02u", year(packed), month(packed), day(packed));
}

std::string partNumberText(quint32 partNumber, unsigned variant) {
    return format("%u.%04u.%02u", partNumber / 10000, partNumber % 10000, variant);
}

std::string twoPartText(unsigned number) {
    return format("%02u.%02u", number / 100, number % 100);
}

std::string hoursText(unsigned hours) {
    return format("%05u/%06u", hours / 1000000, hours % 1000000);
}

namespace {

constexpr quint64 kU8 = 0xFF;
constexpr quint64 kU32 = 0xFFFFFFFFull;

quint64 unsignedAt(const QByteArray& image, int offset, int width) {
    switch (width) {
    case 1:
        return bytes::getLE<quint8>(image, offset);
    case 2:
        return bytes::getLE<quint16>(image, offset);
    default:
        return bytes::getLE<quint32>(image, offset);
    }
}

quint64 largest(const FieldRow& row) {
    switch (row.codec) {
    case Codec::Text:
        return static_cast<quint64>(row.limit > 0 ? row.limit : row.width);
    case Codec::Hours:
        return opTime::HoursMask;
    default:
        return row.width >= 4 ? kU32 : (quint64{1} << (8 * row.width)) - 1;
    }
}

bool digitsOnly(const QString& text) {
    if (text.isEmpty())
        return false;
    for (QChar c : text)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

// A whole number of at most 20 digits; false when it is none or exceeds `max`.
bool wholeNumber(const QString& text, quint64 max, quint64& value, QString& why) {
    if (!digitsOnly(text)) {
        why = QStringLiteral("is not a whole number");
        return false;
    }
    bool ok = false;
    value = text.toULongLong(&ok, 10);
    if (!ok || value > max) {
        why = QStringLiteral("is out of range");
        return false;
    }
    return true;
}

bool outOfRange(QString& why) {
    why = QStringLiteral("is out of range");
    return false;
}

} // namespace

std::vector<Field> fieldsOf(const RecordSchema& schema, const QByteArray& image) {
    std::vector<Field> fields;
    for (std::size_t r = 0; r < schema.rowCount; ++r) {
        const FieldRow& row = schema.rows[r];
        int count = row.count;
        if (count == 0) // as many whole fields as the image holds
            count = image.size() > row.offset ? (image.size() - row.offset) / row.width : 0;
        for (int i = 0; i < count; ++i) {
            Field field;
            field.row = &row;
            field.index = static_cast<unsigned>(i);
            field.offset = row.offset + i * row.width;
            field.max = largest(row);
            field.name = QLatin1String(row.label);
            if (row.spread != Spread::Once)
                field.name += QString::number(i + 1);
            if (row.spread == Spread::Lines)
                field.line = i;
            if (row.spread == Spread::Columns)
                field.column = i;
            fields.push_back(field);
        }
    }
    return fields;
}

Value decode(const Field& field, const QByteArray& image) {
    Value value;
    const FieldRow& row = *field.row;
    if (row.codec == Codec::Text) {
        const std::string raw = blockfields::fieldText(image, field.offset, row.width);
        value.text = QByteArray(raw.data(), static_cast<int>(raw.size()));
        return value;
    }
    value.number = unsignedAt(image, field.offset, row.width);
    if (row.codec == Codec::Hours)
        value.number &= opTime::HoursMask;
    if (row.codec == Codec::PartNumber)
        value.second = bytes::getLE<quint8>(image, field.offset + row.width);
    return value;
}

std::string text(const Field& field, const Value& value) {
    const unsigned number = static_cast<unsigned>(value.number);
    switch (field.row->codec) {
    case Codec::Number:
        return format("%u", number);
    case Codec::Text:
        return value.text.toStdString();
    case Codec::Date:
        return packedDate::text(number);
    case Codec::PartNumber:
        return partNumberText(number, static_cast<unsigned>(value.second));
    case Codec::TwoPart:
        return twoPartText(number);
    case Codec::Hours:
        return hoursText(number);
    }
    return std::string();
}

QString rule(const Field& field) {
    switch (field.row->codec) {
    case Codec::Number:
        return QStringLiteral("a whole number from 0 to %1").arg(field.max);
    case Codec::Text:
        return QStringLiteral("at most %1 printable ASCII characters").arg(field.max);
    case Codec::Date:
        return QStringLiteral("a date YYYY-MM-DD from %1-01-01 to %2-12-31")
            .arg(packedDate::FirstYear)
            .arg(packedDate::year(0xFFFF));
    case Codec::PartNumber:
        return QStringLiteral("NUMBER.SUB.VARIANT: a part number of at most %1 written as its "
                              "number, a dot and its four-digit sub-number, then a dot and the "
                              "variant from 00 to %2")
            .arg(kU32)
            .arg(kU8);
    case Codec::TwoPart:
        return QStringLiteral("NN.NN: two parts, the second of two digits, from 00.00 to %1")
            .arg(QString::fromStdString(twoPartText(static_cast<unsigned>(field.max))));
    case Codec::Hours:
        return QStringLiteral("operating hours from 0 to %1, as 00000/000000 or a plain number")
            .arg(field.max);
    }
    return QString();
}

bool parse(const Field& field, const QString& text, Value& value, QString& why) {
    switch (field.row->codec) {
    case Codec::Number:
        return wholeNumber(text, field.max, value.number, why);
    case Codec::Text: {
        for (QChar c : text)
            if (c.unicode() < 0x20 || c.unicode() > 0x7E) {
                why = QStringLiteral("has a character that is not printable ASCII");
                return false;
            }
        if (static_cast<quint64>(text.size()) > field.max) {
            why = QStringLiteral("is too long (%1 characters)").arg(text.size());
            return false;
        }
        value.text = text.toLatin1();
        return true;
    }
    case Codec::Date: {
        static const QRegularExpression form(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})$"));
        const QRegularExpressionMatch m = form.match(text);
        const QDate date = m.hasMatch() ? QDate(m.captured(1).toInt(), m.captured(2).toInt(),
                                                m.captured(3).toInt())
                                        : QDate();
        if (!date.isValid()) {
            why = QStringLiteral("is not a date");
            return false;
        }
        if (date.year() < static_cast<int>(packedDate::FirstYear) ||
            date.year() > static_cast<int>(packedDate::year(0xFFFF)))
            return outOfRange(why);
        value.number = packedDate::pack(static_cast<unsigned>(date.year()),
                                        static_cast<unsigned>(date.month()),
                                        static_cast<unsigned>(date.day()));
        return true;
    }
    case Codec::PartNumber: {
        static const QRegularExpression form(
            QStringLiteral("^(\\d{1,6})\\.(\\d{4})\\.(\\d{2,3})$"));
        const QRegularExpressionMatch m = form.match(text);
        if (!m.hasMatch()) {
            why = QStringLiteral("is not in the form NUMBER.SUB.VARIANT");
            return false;
        }
        value.number = m.captured(1).toULongLong() * 10000 + m.captured(2).toULongLong();
        value.second = m.captured(3).toULongLong();
        if (value.number > kU32 || value.second > kU8)
            return outOfRange(why);
        return true;
    }
    case Codec::TwoPart: {
        static const QRegularExpression form(QStringLiteral("^(\\d{1,3})\\.(\\d{2})$"));
        const QRegularExpressionMatch m = form.match(text);
        if (!m.hasMatch()) {
            why = QStringLiteral("is not in the form NN.NN");
            return false;
        }
        value.number = m.captured(1).toULongLong() * 100 + m.captured(2).toULongLong();
        return value.number <= field.max || outOfRange(why);
    }
    case Codec::Hours: {
        static const QRegularExpression form(QStringLiteral("^(\\d{5})/(\\d{6})$"));
        const QRegularExpressionMatch m = form.match(text);
        if (m.hasMatch())
            value.number = m.captured(1).toULongLong() * 1000000 + m.captured(2).toULongLong();
        else if (!wholeNumber(text, kU32, value.number, why)) {
            why = QStringLiteral("is not a number of hours");
            return false;
        }
        return value.number <= field.max || outOfRange(why);
    }
    }
    return false;
}

void printFields(std::ostream& out, const RecordSchema& schema, const QByteArray& image,
                 unsigned id, int labelWidth) {
    for (const Field& field : fieldsOf(schema, image)) {
        std::string label = std::string(field.row->label) + ":";
        label.resize(std::max<std::size_t>(label.size(), static_cast<std::size_t>(labelWidth)),
                     ' ');
        out << label << text(field, decode(field, image));
        if (field.row->suffix != nullptr)
            out << field.row->suffix(id);
        out << "\n";
    }
}

} // namespace records
} // namespace Tupsim
