// The headed line form: writer and the reader's dialect.
#include "templates/HeadedLineForm.h"

#include "templates/TextFormat.h"

namespace Tupsim {
namespace detail {

namespace {
const char* const kBlankComment = "#   ";
const std::size_t kRowNumberWidth = 3;

void blankComments(std::string& out, int lines) {
    for (int i = 0; i < lines; ++i) {
        out += kBlankComment;
        out += '\n';
    }
}

// The row number as "%*d" prints it with width 3.
std::string rowNumber(quint32 number) {
    std::string text = std::to_string(number);
    if (text.size() < kRowNumberWidth)
        text.insert(0, kRowNumberWidth - text.size(), ' ');
    return text;
}
} // namespace

LineDialect headedLineDialect(const HeadedLineForm& form) {
    return {form.key,
            true,
            form.linesAllowed,
            form.linesMessage,
            ": Number of columns read inadequate!",
            form.rowCountMessage};
}

void writeHeadedLineForm(std::ostream& out, const HeadedLineForm& form, const TableCells& cells) {
    const quint32 rows = cells.rowCount();
    const quint32 cols = cells.colCount();
    std::string text = std::string("#   Morvane, KIV - RF-Board - ") + form.title + " - Data\n";
    blankComments(text, 4);
    text += std::string("ID:     ") + form.key + '\n';
    blankComments(text, 1);
    text += "#       Parameter COUNT: <rows> * <columns>\n";
    text += "COUNT:  " + std::to_string(rows) + " * " + std::to_string(cols) + '\n';
    blankComments(text, 5);
    if (rows == 0)
        text += '\n';
    const PrintedExtent shown = printedExtent(cells);
    for (quint32 r = 0; r < shown.rows; ++r) {
        text += rowNumber(r + 1);
        text += ":  ";
        for (quint32 c = 0; c < shown.cols; ++c) {
            text += "    ";
            appendFixed(text, cells.cell(r, c), 10, 21);
        }
        text += '\n';
    }
    text += '\n';
    out << text;
}

} // namespace detail
} // namespace Tupsim
