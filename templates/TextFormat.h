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

// The rows and columns a writer prints for the counts of `cells`. Counts that describe no more
// cells than the table's capacity print whole, cells beyond the capacity or the image as zeros.
// Counts that describe more (a corrupt count word) print only the columns within the capacity
// of the rows that the image holds: the text stays proportional to the image whatever its count
// words say, and a reader of it reports the counts that the count line still shows.
struct PrintedExtent {
    quint32 rows;
    quint32 cols;
};
PrintedExtent printedExtent(const TableCells& cells);

} // namespace detail
} // namespace Tupsim
