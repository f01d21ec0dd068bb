// Small helpers shared by the text forms: numbers in fixed notation with a decimal point.
#pragma once

#include "templates/TextCursor.h"

#include <QtGlobal>
#include <string>

namespace Tupsim {
namespace detail {

// Appends `value` as printf's "%<width>.<precision>f" would write it, always with a decimal
// point whatever the process locale; with a buffer size, cut to what a buffer of that many
// characters (terminating zero included) holds.
void appendFixed(std::string& out, double value, int precision, int width = 0, int bufferSize = 0);
std::string fixedNumber(double value, int precision, int width = 0, int bufferSize = 0);
// Appends a whole number in decimal.
void appendDecimal(std::string& out, long long value);

// Behind an integer just read: consumes a fraction of zeros (the writers print integers with
// decimals). A fraction with another digit is not an integer's: the cursor is failed instead,
// as a second integer read would fail on it, and false is returned.
bool skipZeroFraction(TextCursor& in);

// The rows and columns a writer prints for the counts of a table. Counts that describe no more
// cells than the table's capacity print whole, cells beyond the capacity as zeros; counts that
// describe more (a corrupt count word) print only the rows and columns within the capacity, so
// that the text stays proportional to the image whatever its count words say.
struct PrintedExtent {
    quint32 rows;
    quint32 cols;
};
PrintedExtent printedExtent(quint32 rows, quint32 cols, quint32 maxRows, quint32 maxCols);

} // namespace detail
} // namespace Tupsim
