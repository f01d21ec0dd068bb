// The token form of a table section: writer and the word-based reader.
#include "templates/TokenForm.h"

#include "templates/TableLayout.h"
#include "templates/TextFormat.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace Tupsim {
namespace detail {

const TokenStyle kTableStyle = {3, 129, false};
const TokenStyle kWexWStyle = {10, 129, true};
const TokenStyle kMiscStyle = {5, 20, false};

namespace {

const std::size_t kDescriptorSize = TableLayout::kDescriptorSize;

// 1-based line of the character at `pos` of the text; a position past the text (or none, -1)
// stands for the last line.
long long lineAt(const std::string& text, long long pos) {
    const long long end = static_cast<long long>(text.size());
    if (end <= 0)
        return 0; // no text, no line
    if (pos < 0 || pos >= end)
        pos = end - 1; // the last character, which may be the newline that closes the last line
    return 1 + std::count(text.begin(), text.begin() + pos, '\n');
}

// Where the cursor stands, as tellg tells it: -1 when it cannot say (failed, or at its end).
long long position(TextCursor& in) {
    return in ? in.tell() : -1;
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
TextReadStatus badValue(TextCursor& in, const std::string& text, long long start, quint32 row,
                        quint32 col) {
    TextReadStatus status;
    status.code = TextReadStatus::BadValue;
    in.clear();
    std::string word;
    long long at = -1;
    if (start >= 0 && in.seek(static_cast<std::size_t>(start))) {
        in.skipSpace();
        if (in) {
            at = position(in);
            in.word(word);
        }
    }
    const std::string cell =
        "row " + std::to_string(row + 1) + ", column " + std::to_string(col + 1);
    status.detail = word.empty() ? "value in " + cell + " is missing"
                                 : "value '" + word + "' in " + cell + " could not be read";
    status.line = lineAt(text, at);
    return status;
}

// The section of `name` in `text`, read through `in`.
TextReadStatus scanText(TextCursor& in, const std::string& text, const std::string& name,
                        quint32 maxRows, quint32 maxCols, const TokenReadRules& rules,
                        const TokenSectionHook& afterName, const TokenCellReader& readCell,
                        TokenSection& section) {
    section = TokenSection();
    const auto fail = [&](TextReadStatus status, long long at) {
        if (rules.reporting)
            status.line = lineAt(text, at);
        return status;
    };
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
    const long long countAt = rules.reporting ? position(in) - 1 : -1;
    const auto unreadable = [&](const char* what) {
        TextReadStatus status;
        status.code = TextReadStatus::BadValue;
        status.detail = std::string(what) + " count could not be read";
        return fail(status, countAt);
    };
    in >> section.rows;
    if (rules.reporting && in.fail())
        return unreadable("row");
    if (!in.skipTo('*'))
        return fail(missing("*"), -1);
    in >> section.cols;
    if (rules.reporting && in.fail())
        return unreadable("column");
    TextReadStatus status;
    if (!countFits(section.rows, maxRows, "row", rules.reporting, status) ||
        !countFits(section.cols, maxCols, "column", rules.reporting, status))
        return fail(status, countAt);
    // A table without columns prints no row lines, so its own printout has no ':' to find.
    if (rules.reporting && section.cols == 0)
        return status;
    for (quint32 r = 0; r < section.rows; ++r) {
        if (!in.skipTo(':'))
            return fail(missing(":"), -1);
        if (!rules.reporting) {
            // Once the cursor has failed no read changes anything: cells past the capacity
            // are dropped anyway, so the loop may stop there.
            for (quint32 c = 0; c < section.cols && (in || c < maxCols); ++c)
                readCell(in, r, c);
            continue;
        }
        for (quint32 c = 0; c < section.cols; ++c) {
            const long long start = position(in);
            // A value must be followed by white space or the end: "2:" is no number.
            const bool read = readCell(in, r, c);
            const int next = read ? in.peek() : 0;
            if (!read || !(next == std::char_traits<char>::eof() || std::isspace(next)))
                return badValue(in, text, start, r, c);
        }
    }
    return status;
}

} // namespace

void writeTokenIdLine(std::ostream& out, const std::string& name) {
    out << "ID:  " << name << '\n';
}

void writeTokenBody(std::ostream& out, const TableCells& cells, const TokenStyle& style) {
    const quint32 rows = cells.rowCount();
    const quint32 cols = cells.colCount();
    std::string text = "COUNT:  " + std::to_string(rows) + '*' + std::to_string(cols) + '\n';
    const PrintedExtent shown = printedExtent(cells);
    const auto value = [&](quint32 r, quint32 c) {
        appendFixed(text, cells.cell(r, c), style.precision, 0, style.bufferSize);
    };
    if (style.rowPerLine || rows <= cols) {
        for (quint32 r = 0; r < shown.rows; ++r) {
            appendDecimal(text, r + 1);
            text += ": ";
            for (quint32 c = 0; c < shown.cols; ++c) {
                text += '\t';
                value(r, c);
            }
            text += '\n';
        }
    } else {
        for (quint32 r = 0; r < shown.rows; ++r)
            for (quint32 c = 0; c < shown.cols; ++c) {
                appendDecimal(text, r + 1);
                text += ":  ";
                value(r, c);
                text += '\n';
            }
    }
    text += '\n';
    out << text;
}

void writeDescriptorHeader(std::ostream& out, const std::string& name,
                           const std::vector<std::string>& descriptors) {
    out << "ID:  " << name << "\n\n";
    for (std::size_t i = 0; i < descriptors.size(); ++i)
        out << "DESCRIPTOR" << std::to_string(i + 1) << ": " << descriptors[i] << '\n';
    out << "\n\n";
}

std::string readDescriptor(TextCursor& in, quint32 number) {
    const long long start = in.tell();
    if (!searchWord(in, "DESCRIPTOR" + std::to_string(number) + ":")) {
        // A missing descriptor must not cost the rest of the section.
        in.clear();
        if (start < 0)
            in.setFail();
        else
            in.seek(static_cast<std::size_t>(start));
        return std::string();
    }
    std::string word;
    in.word(word);
    word.resize(kDescriptorSize, ' ');
    return word;
}

bool searchWord(TextCursor& in, const std::string& key) {
    const char* word = nullptr;
    std::size_t length = 0;
    while (in.word(word, length))
        if (length == key.size() && std::memcmp(word, key.data(), length) == 0)
            return true;
    return false;
}

TextReadStatus scanTokenForm(std::istream& in, const std::string& name, quint32 maxRows,
                             quint32 maxCols, const TokenReadRules& rules,
                             const TokenSectionHook& afterName, const TokenCellReader& readCell,
                             TokenSection& section) {
    const std::string text = slurp(in);
    TextCursor cursor(text);
    const TextReadStatus status =
        scanText(cursor, text, name, maxRows, maxCols, rules, afterName, readCell, section);
    cursor.handBack(in);
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
