// The codecs of record fields: how their bytes print, what typed value they hold, and how a
// printed value is read back. The record classes print through the same text functions.
#pragma once

#include "blocks/RecordSchema.h"

#include <QByteArray>
#include <QString>
#include <ostream>
#include <string>
#include <vector>

namespace Tupsim {
namespace records {

// Dates packed into 16 bits: bits 15..9 year minus 1980, bits 8..5 month, bits 4..0 day.
namespace packedDate {
enum : unsigned {
    FirstYear = 1980,
    YearShift = 9,
    MonthShift = 5,
    YearBits = 0xFE00,
    MonthBits = 0x1E0,
    DayBits = 0x1F
};
constexpr unsigned year(unsigned packed) {
    return FirstYear + (packed >> YearShift);
}
constexpr unsigned month(unsigned packed) {
    return (packed & MonthBits) >> MonthShift;
}
constexpr unsigned day(unsigned packed) {
    return packed & DayBits;
}
constexpr quint16 pack(unsigned year, unsigned month, unsigned day) {
    return static_cast<quint16>(((year - FirstYear) << YearShift) | (month << MonthShift) | day);
}
// One part of a date stored into any word, the other bits kept.
constexpr quint32 withYear(quint32 word, unsigned year) {
    return (word & ~quint32{YearBits}) | (((year - FirstYear) << YearShift) & YearBits);
}
constexpr quint32 withMonth(quint32 word, unsigned month) {
    return (word & ~quint32{MonthBits}) | ((month << MonthShift) & MonthBits);
}
constexpr quint32 withDay(quint32 word, unsigned day) {
    return (word & ~quint32{DayBits}) | (day & DayBits);
}
// "2021-06-15"; month and day as stored, whether or not they make a date.
std::string text(unsigned packed);
} // namespace packedDate

// The operating-time word of the service block: bits 31..18 turn-ons, bits 17..0 hours.
namespace opTime {
enum : unsigned { HoursMask = 0x3FFFF, TurnOnShift = 18 };
}

// "1234.5678.02": the part number with its four-digit sub-number, then the variant.
std::string partNumberText(quint32 partNumber, unsigned variant);
// "03.01": the number divided by 100 as at least two digits, then the remainder.
std::string twoPartText(unsigned number);
// "00012/345678": the hours in millions and the rest.
std::string hoursText(unsigned hours);

// One field of a record block: a row of its schema, repeated rows counted out.
struct Field {
    const FieldRow* row = nullptr;
    QString name;       // the label, with the 1-based number of the field where the row repeats
    unsigned index = 0; // within the row, for its setter
    int offset = 0;
    int line = 0;    // which line with this label, 0 for the first
    int column = -1; // which blank-separated value of the line; -1 for the whole rest
    quint64 max = 0; // the largest number or the most characters it takes
};

// The fields of `image` by `schema`, in printing order.
std::vector<Field> fieldsOf(const RecordSchema& schema, const QByteArray& image);

// The value the field's bytes hold; fields beyond the image read 0 or empty.
Value decode(const Field& field, const QByteArray& image);
// The value as the field prints it (Latin-1 bytes).
std::string text(const Field& field, const Value& value);
// Reads a printed value back; false, with why it does not fit, when it cannot be stored.
bool parse(const Field& field, const QString& text, Value& value, QString& why);
// What the field takes, in words.
QString rule(const Field& field);

// One line per field of `schema`: the label and its colon padded to `labelWidth` characters,
// the value, and what the row's suffix adds for block `id`.
void printFields(std::ostream& out, const RecordSchema& schema, const QByteArray& image,
                 unsigned id, int labelWidth);

} // namespace records
} // namespace Tupsim
