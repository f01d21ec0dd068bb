// Small helpers shared by the text forms.
#include "templates/TextFormat.h"

#include <algorithm>
#include <charconv>

namespace Tupsim {
namespace detail {

void appendFixed(std::string& out, double value, int precision, int width, int bufferSize) {
    // The longest fixed text of a double: 309 integer digits, sign, point and the decimals.
    char text[320 + 32];
    const int decimals = std::clamp(precision, 0, 30);
    const std::to_chars_result done =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
    std::size_t length = static_cast<std::size_t>(done.ptr - text);
    const std::size_t padding =
        width > 0 && length < static_cast<std::size_t>(width) ? width - length : 0;
    std::size_t room =
        bufferSize > 0 ? static_cast<std::size_t>(bufferSize) - 1 : std::string::npos;
    const std::size_t blanks = std::min(padding, room);
    out.append(blanks, ' ');
    if (room != std::string::npos)
        room -= blanks;
    out.append(text, std::min(length, room));
}

std::string fixedNumber(double value, int precision, int width, int bufferSize) {
    std::string text;
    appendFixed(text, value, precision, width, bufferSize);
    return text;
}

void appendDecimal(std::string& out, long long value) {
    char text[24];
    const std::to_chars_result done = std::to_chars(text, text + sizeof text, value);
    out.append(text, done.ptr);
}

bool skipZeroFraction(TextCursor& in) {
    if (!in || in.peek() != '.')
        return true;
    char c = 0;
    in.get(c);
    while (in.peek() == '0')
        in.get(c);
    const int next = in.peek();
    if (next < '1' || next > '9')
        return true;
    in.setFail();
    return false;
}

PrintedExtent printedExtent(const TableCells& cells) {
    const quint32 rows = cells.rowCount();
    const quint32 cols = cells.colCount();
    // A row without columns still prints a line in the line forms: it counts as one cell.
    if (quint64(rows) * std::max<quint32>(cols, 1) <= kMaxPrintedCells)
        return {rows, cols};
    return {std::min({rows, cells.rowCapacity(), cells.rowsHeld()}),
            std::min(cols, cells.colCapacity())};
}

} // namespace detail
} // namespace Tupsim
