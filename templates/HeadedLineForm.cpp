// The headed line form: writer and the reader's dialect.
#include "templates/HeadedLineForm.h"

#include "templates/TextFormat.h"

namespace Tupsim {
namespace detail {

namespace {
const char* const kBlankComment = "#   ";
const std::size_t kRowNumberWidth = 3;

void blankComments(std::ostream& out, int lines) {
    for (int i = 0; i < lines; ++i)
        out << kBlankComment << '\n';
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
    out << "#   Morvane, KIV - RF-Board - " << form.title << " - Data" << '\n';
    blankComments(out, 4);
    out << "ID:     " << form.key << '\n';
    blankComments(out, 1);
    out << "#       Parameter COUNT: <rows> * <columns>" << '\n';
    out << "COUNT:  " << std::to_string(rows) << " * " << std::to_string(cols) << '\n';
    blankComments(out, 5);
    if (rows == 0)
        out << '\n';
    for (quint32 r = 0; r < printableCount(cells.shownRows()); ++r) {
        out << rowNumber(r + 1) << ":  ";
        for (quint32 c = 0; c < printableCount(cells.shownCols()); ++c)
            out << "    " << fixedNumber(cells.cell(r, c), 10, 21);
        out << '\n';
    }
    out << '\n';
}

} // namespace detail
} // namespace Tupsim
