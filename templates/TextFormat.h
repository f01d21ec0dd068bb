// Small helpers shared by the text forms: numbers in fixed notation with a decimal point.
#pragma once

#include "templates/TableCells.h"
#include "templates/TextCursor.h"

#include <QtGlobal>
#include <string>

namespace Tupsim {
namespace detail {

// Appends `value` as printf's "%<width>.<precision>f" would write it, always with a decimal
// point whatever the process locale; with a buffer size, cut to what a buffer of that many
// characters (terminating zero included) holds.
EPROMDATABLOCK_EXPORT void appendFixed(std::string& out, double value, int precision, int width = 0,
                                       int bufferSize = 0);
EPROMDATABLOCK_EXPORT std::string fixedNumber(double value, int precision, int width = 0,
                                              int bufferSize = 0);
// Appends a whole number in decimal.
EPROMDATABLOCK_EXPORT void appendDecimal(std::string& out, long long value);

// Behind an integer just read: consumes a fraction of zeros (the writers print integers with
// decimals). A fraction with another digit is not an integer's: the cursor is failed instead,
// as a second integer read would fail on it, and false is returned.
EPROMDATABLOCK_EXPORT bool skipZeroFraction(TextCursor& in);

// The rows and columns a writer prints for the counts of `cells`. Counts that describe at most
// kMaxPrintedCells cells print whole, cells beyond the capacity or the image as zeros and row
// indexes beyond the image as 0, whatever the capacity. Counts that describe more (a corrupt
// count word) print only the columns within the capacity of the rows that the image holds.
struct PrintedExtent {
    quint32 rows;
    quint32 cols;
};
// Counts above the capacity print as zeros; a count word of 0xFFFFFFFF would print billions of
// them for a 16-byte block. A million cells (some ten megabytes of text) is far above every
// table's capacity and still a bounded amount of work for one block.
constexpr quint64 kMaxPrintedCells = quint64(1) << 20;
PrintedExtent printedExtent(const TableCells& cells);

} // namespace detail
} // namespace Tupsim
