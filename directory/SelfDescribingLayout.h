// Layout rules shared by the walk, the writer and the printers of self-describing images.
#pragma once

#include "ETypeId.h"
#include "HwSBlockDescription.h"
#include "core/ElementTypes.h"

#include <QByteArray>
#include <QList>
#include <cstddef>
#include <cstdint>

namespace Tupsim {
namespace layout {

constexpr std::uint64_t UpdateIndexOffset = 12; // long header
constexpr std::uint64_t FirstTableOffset = 14;  // long header: the first table's row count
constexpr std::uint64_t LongColumnTypesOffset = 20;
constexpr std::uint64_t ShortColumnTypesOffset = 18;
constexpr std::uint64_t PadUnit = 4;
// Longer values are not kept by the walk.
constexpr std::uint64_t MaxValueSize = 29;

// Bytes one element takes in the walk of the image (the element-type table's walk width); 0 for
// NONE and unknown codes. A STRING counts 1 here but runs up to and including its zero.
inline unsigned int elementWidth(unsigned int type) {
    return elements::of(type).walkWidth;
}

// True when elements of `type` occupy bytes in the image.
inline bool takesBytes(unsigned int type) {
    return elements::takesBytes(type);
}

// Bytes from `pos` to the next multiple of `unit`, counted from the image start.
inline std::uint64_t padLength(std::uint64_t pos, std::uint64_t unit) {
    return unit == 0 ? 0 : (unit - pos % unit) % unit;
}

// Splits an identifier run into at most `count` identifiers: fixed-width ones by their size,
// STRING ones at their zeros (which are left out); an incomplete last one is dropped.
QList<QByteArray> identifiers(const QByteArray& ids, unsigned int type, std::uint64_t count);

// What a text rendering of `table` shows: all `columns` and `rowsRead` rows while the cells stay
// in proportion to the values the image held; beyond that, the columns cut behind the last one
// that holds a value (behind it the image ended), and as many rows as keep that proportion. A
// damaged header may claim thousands of columns beside a column of thousands of rows; shown whole,
// that is millions of empty cells.
struct Rendering {
    std::size_t columns;
    std::size_t rows;
};
Rendering rendering(const HwSBlockDescription& table, std::size_t columns, std::size_t rowsRead);

} // namespace layout
} // namespace Tupsim
