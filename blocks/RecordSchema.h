// The field table of a record class and the hook by which the catalogue finds it: a class with
// named fields declares `static const records::RecordSchema& recordSchema();` beside its rows.
#pragma once

#include "HwDatablock.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace Tupsim {
namespace records {

// How a field's bytes are shown and read back.
enum class Codec : unsigned char {
    Number,     // unsigned, decimal
    Text,       // bytes up to the first NUL
    Date,       // a packed date, "2021-06-15"
    PartNumber, // a 32-bit part number and the variant byte behind it, "1234.5678.02"
    TwoPart,    // "03.01": the number divided by 100, then the remainder
    Hours,      // the operating hours in bits 17..0 of a 32-bit word, "00012/345678"
};

// Where the fields of a repeated row are printed.
enum class Spread : unsigned char {
    Once,    // one field, the whole rest of its line
    Lines,   // one line each, under the same label
    Columns, // blank-separated values of one line
};

// A field's value: a number (Date: the packed word; PartNumber: the part number and the variant
// in `second`) or the bytes of a text.
struct Value {
    quint64 number = 0;
    quint64 second = 0;
    QByteArray text;
};

// Sets field `index` of a repeated row (0 for a single field) through the class's setter.
using Setter = void (*)(HwDatablock& block, const Value& value, unsigned index);

struct FieldRow {
    const char* label; // as printed, without the colon
    int offset;        // of the first field
    int width;         // bytes of one field (PartNumber: the part number's four)
    Codec codec;
    Setter set;    // nullptr: read only
    int count = 1; // fields of the row; 0: one per whole field up to the image's end
    Spread spread = Spread::Once;
    int limit = 0; // Text: most characters the setter writes, when fewer than width
    const char* (*suffix)(unsigned id) = nullptr; // printed behind the value, by block id
};

struct RecordSchema {
    const FieldRow* rows = nullptr;
    std::size_t rowCount = 0;
    int recordSize = 8;                            // bytes the setters need
    bool (*isClass)(const HwDatablock&) = nullptr; // the object is of the schema's class
};

// The schema of class C over `count` rows.
template <class C>
RecordSchema schemaOver(const FieldRow* rows, std::size_t count, int recordSize) {
    return {rows, count, recordSize,
            [](const HwDatablock& block) { return dynamic_cast<const C*>(&block) != nullptr; }};
}
template <class C, std::size_t N>
RecordSchema schemaOver(const FieldRow (&rows)[N], int recordSize) {
    return schemaOver<C>(rows, N, recordSize);
}

namespace detail {
template <typename A> A argument(const Value& value) {
    if constexpr (std::is_same<A, QString>::value)
        return QString::fromLatin1(value.text);
    else
        return static_cast<A>(value.number);
}
template <auto Member> struct SetThrough;
template <class C, typename A, void (C::*Member)(A)> struct SetThrough<Member> {
    static void call(HwDatablock& block, const Value& value, unsigned) {
        (static_cast<C&>(block).*Member)(argument<std::decay_t<A>>(value));
    }
};
} // namespace detail

// The setter of a row whose field one member function of one argument sets.
template <auto Member> constexpr Setter through = &detail::SetThrough<Member>::call;

namespace detail {
template <class T, class = void> struct HasSchema : std::false_type {};
template <class T>
struct HasSchema<T, std::void_t<decltype(T::recordSchema())>> : std::true_type {};
} // namespace detail

// The field table of record class T, or nullptr for a class without named fields.
template <class T> const RecordSchema* schemaOf() {
    if constexpr (detail::HasSchema<T>::value)
        return &T::recordSchema();
    else
        return nullptr;
}

} // namespace records
} // namespace Tupsim
