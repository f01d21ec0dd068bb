// Small helpers shared by the text forms: numbers in fixed notation with a decimal point.
#pragma once

#include <QtGlobal>
#include <istream>
#include <string>

namespace Tupsim {
namespace detail {

// `value` as printf's "%<width>.<precision>f" would write it, always with a decimal point
// whatever the process locale; with a buffer size, cut to what a buffer of that many
// characters (terminating zero included) holds.
std::string fixedNumber(double value, int precision, int width = 0, int bufferSize = 0);

// Behind an integer just read: consumes a fraction of zeros (the writers print integers with
// decimals). A fraction with another digit is not an integer's: the stream is failed instead,
// as a second integer read would fail on it, and false is returned.
bool skipZeroFraction(std::istream& in);

// How many rows or columns a writer prints for a count word: counts above the capacity print
// zeros, but a corrupt count must not produce endless output.
quint32 printableCount(quint32 count);

} // namespace detail
} // namespace Tupsim
