// The line-oriented table sections: the indexed line form and the reader shared with the
// headed line form.
#pragma once

#include "TextReadStatus.h"
#include "templates/TableCells.h"

#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace Tupsim {
namespace detail {

// What distinguishes the line-oriented readers from each other.
struct LineDialect {
    std::string key;  // the block name, or the key of a headed section
    bool headed;      // key and "COUNT:" open their lines; values may carry decimals
    int linesAllowed; // lines between the id and the count line before the complaint
    std::string linesMessage;
    std::string rowMessage; // follows "ERROR: In Row =" and the row number
    std::string rowCountMessage;
};

LineDialect indexLineDialect(const std::string& name);

struct ParsedRow {
    qint64 label = 0; // the number in front of the row's ":"
    std::vector<double> values;
};

struct ParsedLines {
    bool idFound = false;
    bool countFound = false;
    qint64 rowCount = 0; // as the count line says
    qint64 colCount = 0;
    std::vector<ParsedRow> rows; // up to the capacities; surplus rows and values are dropped
    long long countLine = 0;     // 1-based line of the count line
    long long lines = 0;         // lines in the text
};

// Takes each complaint as the reader makes it: its 1-based line and its text without newline.
using ComplaintSink = std::function<void(long long line, const std::string& text)>;

// Rewinds `in` and reads the section, handing every complaint to `complain` as it arises.
ParsedLines scanLineSection(std::istream& in, const LineDialect& dialect, quint32 maxRows,
                            quint32 maxCols, const ComplaintSink& complain);

// Rewinds `in` and reads the section; complaints go to standard output, the process goes on.
ParsedLines readLineSection(std::istream& in, const LineDialect& dialect, quint32 maxRows,
                            quint32 maxCols);

// Rewinds `in` and reads the section for a reader that reports: complaints are kept in `status`
// (the first few, and a count), and the status fails when the section has no id or count line
// or a count is negative or above the capacity. The complaints alone do not fail it.
ParsedLines readLineSection(std::istream& in, const LineDialect& dialect, quint32 maxRows,
                            quint32 maxCols, TextReadStatus& status);

// The indexed line form: each row starts with its index word.
void writeLineForm(std::ostream& out, const std::string& name, const TableCells& cells);

} // namespace detail
} // namespace Tupsim
