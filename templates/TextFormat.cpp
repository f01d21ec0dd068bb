// Small helpers shared by the text forms.
#include "templates/TextFormat.h"

#include <algorithm>
#include <iomanip>
#include <locale>
#include <sstream>

namespace Tupsim {
namespace detail {

namespace {
// Every real table is smaller than this in each direction; see printableCount.
const quint32 kPrintLimit = 4096;
} // namespace

std::string fixedNumber(double value, int precision, int width, int bufferSize) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed << std::setprecision(precision) << std::setw(width) << value;
    std::string result = text.str();
    if (bufferSize > 0 && result.size() >= static_cast<std::size_t>(bufferSize))
        result.resize(static_cast<std::size_t>(bufferSize) - 1);
    return result;
}

bool skipZeroFraction(std::istream& in) {
    if (!in || in.peek() != '.')
        return true;
    in.get();
    while (in.peek() == '0')
        in.get();
    const int next = in.peek();
    if (next < '1' || next > '9')
        return true;
    in.setstate(std::ios::failbit);
    return false;
}

quint32 printableCount(quint32 count) {
    return std::min(count, kPrintLimit);
}

} // namespace detail
} // namespace Tupsim
