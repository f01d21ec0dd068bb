// The token form of a table section: writer and the word-based reader.
#include "templates/TokenForm.h"

#include "templates/TableLayout.h"
#include "templates/TextFormat.h"

#include <cctype>
#include <cstdlib>
#include <iostream>

namespace Tupsim {
namespace detail {

const TokenStyle kTableStyle = {3, 129, false};
const TokenStyle kWexWStyle = {10, 129, true};
const TokenStyle kMiscStyle = {5, 20, false};

namespace {

const std::size_t kDescriptorSize = TableLayout::kDescriptorSize;

bool skipTo(std::istream& in, char wanted) {
    char c = 0;
    while (in.get(c))
        if (c == wanted)
            return true;
    return false;
}

// 1-based line of the character at `pos` of the stream; a position past the text (or none, -1)
// stands for the last line. Only failures ask for it, so counting from the start is good enough.
long long lineAt(std::istream& in, std::streamoff pos) {
    in.clear();
    in.seekg(0, std::ios::end);
    const std::streamoff end = in.tellg();
    if (end <= 0)
        return 0; // no text, no line
    if (pos < 0 || pos >= end)
        pos = end - 1; // the last character, which may be the newline that closes the last line
    in.seekg(0);
    long long line = 1;
    std::streambuf* buffer = in.rdbuf();
    for (std::streamoff i = 0; i < pos; ++i) {
        const int c = buffer->sbumpc();
        if (c == std::char_traits<char>::eof())
            break;
        if (c == '\n')
            ++line;
    }
    return line;
}

// Where the stream stands; -1 when it cannot say (failed, or at its end).
std::streamoff position(std::istream& in) {
    return in ? static_cast<std::streamoff>(in.tellg()) : std::streamoff(-1);
}

TextReadStatus missing(const std::string& key) {
    TextReadStatus status;
    status.code = TextReadStatus::MissingKey;
    status.key = key;
    status.detail = "can not find '" + key + "'";
    return status;
}

// The count check of the conversion tools (signed, against the capacity) and, when reporting,
// the refusal of counts that are negative as signed 32-bit numbers.
bool countFits(quint32 count, quint32 capacity, const char* what, bool reporting,
               TextReadStatus& status) {
    const qint32 value = static_cast<qint32>(count);
    if (value > static_cast<qint32>(capacity)) {
        status.code = TextReadStatus::CountTooHigh;
        status.detail = std::string(what) + " count " + std::to_string(value) +
                        " above the capacity " + std::to_string(capacity);
        return false;
    }
    if (reporting && value < 0) {
        status.code = TextReadStatus::CountNegative;
        status.detail = std::string(what) + " count " + std::to_string(count) + " is negative (" +
                        std::to_string(value) + ")";
        return false;
    }
    return true;
}

// A value that could not be read: the word that stands at `start`, or its absence.
TextReadStatus badValue(std::istream& in, std::streamoff start, quint32 row, quint32 col) {
    TextReadStatus status;
    status.code = TextReadStatus::BadValue;
    in.clear();
    std::string word;
    std::streamoff at = -1;
    if (start >= 0 && in.seekg(start) && in >> std::ws) {
        at = position(in);
        in >> word;
    }
    const std::string cell =
        "row " + std::to_string(row + 1) + ", column " + std::to_string(col + 1);
    status.detail = word.empty() ? "value in " + cell + " is missing"
                                 : "value '" + word + "' in " + cell + " could not be read";
    status.line = lineAt(in, at);
    return status;
}

} // namespace

void writeTokenIdLine(std::ostream& out, const std::string& name) {
    out << "ID:  " << name << '\n';
}

void writeTokenBody(std::ostream& out, const TableCells& cells, const TokenStyle& style) {
    const quint32 rows = cells.rowCount();
    const quint32 cols = cells.colCount();
    out << "COUNT:  " << std::to_string(rows) << '*' << std::to_string(cols) << '\n';
    const quint32 shownRows = printableCount(cells.shownRows());
    const quint32 shownCols = printableCount(cells.shownCols());
    const auto value = [&](quint32 r, quint32 c) {
        return fixedNumber(cells.cell(r, c), style.precision, 0, style.bufferSize);
    };
    if (style.rowPerLine || rows <= cols) {
        for (quint32 r = 0; r < shownRows; ++r) {
            out << std::to_string(r + 1) << ": ";
            for (quint32 c = 0; c < shownCols; ++c)
                out << '\t' << value(r, c);
            out << '\n';
        }
    } else {
        for (quint32 r = 0; r < shownRows; ++r)
            for (quint32 c = 0; c < shownCols; ++c)
                out << std::to_string(r + 1) << ":  " << value(r, c) << '\n';
    }
    out << '\n';
}

void writeDescriptorHeader(std::ostream& out, const std::string& name,
                           const std::vector<std::string>& descriptors) {
    out << "ID:  " << name << "\n\n";
    for (std::size_t i = 0; i < descriptors.size(); ++i)
        out << "DESCRIPTOR" << std::to_string(i + 1) << ": " << descriptors[i] << '\n';
    out << "\n\n";
}

std::string readDescriptor(std::istream& in, quint32 number) {
    const std::streampos start = in.tellg();
    if (!searchWord(in, "DESCRIPTOR" + std::to_string(number) + ":")) {
        // A missing descriptor must not cost the rest of the section.
        in.clear();
        in.seekg(start);
        return std::string();
    }
    std::string word;
    in >> word;
    word.resize(kDescriptorSize, ' ');
    return word;
}

bool searchWord(std::istream& in, const std::string& key) {
    std::string word;
    while (in >> word)
        if (word == key)
            return true;
    return false;
}

TextReadStatus scanTokenForm(std::istream& in, const std::string& name, quint32 maxRows,
                             quint32 maxCols, const TokenReadRules& rules,
                             const TokenSectionHook& afterName, const TokenCellReader& readCell,
                             TokenSection& section) {
    section = TokenSection();
    const auto fail = [&](TextReadStatus status, std::streamoff at) {
        if (rules.reporting)
            status.line = lineAt(in, at);
        return status;
    };
    in.clear();
    in.seekg(0);
    const bool idFound = searchWord(in, "ID:");
    if (!idFound && rules.demandName)
        return fail(missing("ID:"), -1);
    section.nameFound = idFound && searchWord(in, name);
    if (!section.nameFound)
        return rules.demandName ? fail(missing(name), -1) : TextReadStatus();
    if (afterName)
        afterName(in);
    if (!searchWord(in, "COUNT:"))
        return fail(missing("COUNT:"), -1);
    // The count line, should its counts be refused; the word "COUNT:" ends just before.
    const std::streamoff countAt = rules.reporting ? position(in) - 1 : -1;
    const auto unreadable = [&](const char* what) {
        TextReadStatus status;
        status.code = TextReadStatus::BadValue;
        status.detail = std::string(what) + " count could not be read";
        return fail(status, countAt);
    };
    in >> section.rows;
    if (rules.reporting && in.fail())
        return unreadable("row");
    if (!skipTo(in, '*'))
        return fail(missing("*"), -1);
    in >> section.cols;
    if (rules.reporting && in.fail())
        return unreadable("column");
    TextReadStatus status;
    if (!countFits(section.rows, maxRows, "row", rules.reporting, status) ||
        !countFits(section.cols, maxCols, "column", rules.reporting, status))
        return fail(status, countAt);
    for (quint32 r = 0; r < section.rows; ++r) {
        if (!skipTo(in, ':'))
            return fail(missing(":"), -1);
        if (!rules.reporting) {
            // Once the stream has failed no read changes anything: cells past the capacity
            // are dropped anyway, so the loop may stop there.
            for (quint32 c = 0; c < section.cols && (in || c < maxCols); ++c)
                readCell(in, r, c);
            continue;
        }
        for (quint32 c = 0; c < section.cols; ++c) {
            const std::streamoff start = position(in);
            // A value must be followed by white space or the end: "2:" is no number.
            const bool read = readCell(in, r, c);
            const int next = read ? in.peek() : 0;
            if (!read || !(next == std::char_traits<char>::eof() || std::isspace(next)))
                return badValue(in, start, r, c);
        }
    }
    return status;
}

TokenSection readTokenForm(std::istream& in, const std::string& name, quint32 maxRows,
                           quint32 maxCols, bool strict, const TokenSectionHook& afterName,
                           const TokenCellReader& readCell) {
    TokenSection section;
    const TextReadStatus status =
        scanTokenForm(in, name, maxRows, maxCols, {strict, false}, afterName, readCell, section);
    // The reader serves conversion tools: a section it cannot read ends the process.
    if (status.code == TextReadStatus::MissingKey) {
        std::cerr << "can not find string:  " << status.key << "  in ASCII-File" << std::endl;
        std::exit(1);
    }
    if (status.code == TextReadStatus::CountTooHigh) {
        std::cerr << " count of Block " << name << " is too high" << std::endl;
        std::exit(2);
    }
    return section;
}

} // namespace detail
} // namespace Tupsim
