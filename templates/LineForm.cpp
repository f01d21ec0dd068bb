// The line-oriented table sections: the indexed line form and the shared line reader.
#include "templates/LineForm.h"

#include "templates/TextFormat.h"
#include "templates/ValueConversion.h"

#include <cstdlib>
#include <iostream>
#include <locale>
#include <sstream>

namespace Tupsim {
namespace detail {

namespace {

enum class State { LookingForId, LookingForCount, ReadingRows, Done };

// Decimal number at the start of `text`, leading blanks allowed; 0 when there is none.
qint64 decimal(const std::string& text) {
    return std::strtoll(text.c_str(), nullptr, 10);
}

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool isIdLine(const std::string& line, const LineDialect& dialect) {
    if (!dialect.headed)
        return line.find("ID:") != std::string::npos && line.find(dialect.key) != std::string::npos;
    // The key opens the line, behind an "ID:" keyword and its blanks where one is written.
    std::string rest = line;
    if (startsWith(rest, "ID:"))
        rest.erase(0, rest.find_first_not_of(" \t", 3));
    return rest.size() >= dialect.key.size() && startsWith(rest, dialect.key);
}

bool isCountLine(const std::string& line, const LineDialect& dialect) {
    return dialect.headed ? startsWith(line, "COUNT:") : line.find("COUNT:") != std::string::npos;
}

// "COUNT:  <rows> * <cols>" or "COUNT:  <rows>*<cols>": the numbers around the first star.
void readCounts(std::string line, ParsedLines& parsed) {
    line.erase(line.find("COUNT:"), 6);
    const std::size_t star = line.find('*');
    parsed.rowCount = decimal(line.substr(0, star));
    parsed.colCount = star == std::string::npos ? 0 : decimal(line.substr(star + 1));
    parsed.countFound = true;
}

// Values one after another until none is left. Integer rows take "5.000" as 5, since the
// writer prints integers with three decimals; "5.5" ends the row after the 5.
std::vector<double> readValues(const std::string& text, bool decimals) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    std::vector<double> values;
    for (;;) {
        if (decimals) {
            double value = 0;
            if (!(in >> value))
                break;
            values.push_back(value);
            continue;
        }
        long long value = 0;
        if (!(in >> value))
            break;
        values.push_back(static_cast<double>(value));
        skipZeroFraction(in);
    }
    return values;
}

class LineSectionReader {
public:
    LineSectionReader(const LineDialect& dialect, quint32 maxRows, quint32 maxCols,
                      const ComplaintSink& complain)
        : dialect(dialect), maxRows(maxRows), maxCols(maxCols), complain(complain) {}

    void line(std::string text) {
        parsed.lines = ++lineNumber;
        // The empty line that closes a section ends its rows; what follows is other blocks'.
        if (text.empty() && state == State::ReadingRows)
            state = State::Done;
        const std::size_t comment = text.find('#');
        if (comment != std::string::npos)
            text.erase(comment);
        if (text.empty())
            return;
        switch (state) {
        case State::LookingForId:
            if (isIdLine(text, dialect)) {
                parsed.idFound = true;
                state = State::LookingForCount;
            }
            break;
        case State::LookingForCount:
            if (isCountLine(text, dialect)) {
                readCounts(text, parsed);
                parsed.countLine = lineNumber;
                state = State::ReadingRows;
            } else if (++linesSinceId > dialect.linesAllowed) {
                complain(lineNumber, "ERROR: " + dialect.linesMessage);
            }
            break;
        case State::ReadingRows:
            row(text);
            break;
        case State::Done:
            break;
        }
    }

    ParsedLines finish() {
        // A missing line is looked for up to the end; a row count is the count line's.
        if (state == State::LookingForCount) {
            complain(lineNumber, "ERROR: FOUND NO COUNT VALUES !");
            return parsed;
        }
        if (state == State::LookingForId)
            complain(lineNumber, "ERROR: FOUND NO ID !");
        if (parsed.rowCount != rowsRead)
            complain(parsed.countFound ? parsed.countLine : lineNumber,
                     "ERROR: " + dialect.rowCountMessage);
        return parsed;
    }

private:
    void row(const std::string& text) {
        const std::size_t colon = text.find(':');
        if (colon == std::string::npos) {
            state = State::Done; // the rest of the file belongs to others
            return;
        }
        ParsedRow row;
        row.label = decimal(text.substr(0, colon));
        row.values = readValues(text.substr(colon + 1), dialect.headed);
        const qint64 read = static_cast<qint64>(row.values.size());
        ++rowsRead;
        if (read != parsed.colCount)
            complain(lineNumber, "ERROR: In Row =" + std::to_string(rowsRead) + dialect.rowMessage);
        if (row.values.size() > maxCols)
            row.values.resize(maxCols);
        if (parsed.rows.size() < maxRows)
            parsed.rows.push_back(std::move(row));
    }

    const LineDialect& dialect;
    const quint32 maxRows;
    const quint32 maxCols;
    const ComplaintSink& complain;
    long long lineNumber = 0;
    State state = State::LookingForId;
    int linesSinceId = 0;
    qint64 rowsRead = 0;
    ParsedLines parsed;
};

} // namespace

LineDialect indexLineDialect(const std::string& name) {
    return {name,
            false,
            5,
            "Number of lines between ID and Count to large",
            " correspondent the number of columns not with the given value",
            "Row value (COUNT) don't not equal with number of rows"};
}

ParsedLines scanLineSection(std::istream& in, const LineDialect& dialect, quint32 maxRows,
                            quint32 maxCols, const ComplaintSink& complain) {
    in.clear();
    in.seekg(0);
    LineSectionReader reader(dialect, maxRows, maxCols, complain);
    std::string text;
    while (std::getline(in, text))
        reader.line(text);
    return reader.finish();
}

ParsedLines readLineSection(std::istream& in, const LineDialect& dialect, quint32 maxRows,
                            quint32 maxCols) {
    return scanLineSection(in, dialect, maxRows, maxCols, [](long long, const std::string& text) {
        std::cout << text << std::endl;
    });
}

ParsedLines readLineSection(std::istream& in, const LineDialect& dialect, quint32 maxRows,
                            quint32 maxCols, TextReadStatus& status) {
    status = TextReadStatus();
    const ParsedLines parsed = scanLineSection(
        in, dialect, maxRows, maxCols,
        [&](long long line, const std::string& text) { status.addComplaint(line, text); });
    const auto fail = [&](TextReadStatus::Code code, long long line, const std::string& detail) {
        status.code = code;
        status.line = line;
        status.detail = detail;
    };
    if (!parsed.idFound) {
        status.key = dialect.key;
        fail(TextReadStatus::MissingKey, parsed.lines, "can not find '" + dialect.key + "'");
        return parsed;
    }
    if (!parsed.countFound) {
        status.key = "COUNT:";
        fail(TextReadStatus::MissingKey, parsed.lines, "can not find 'COUNT:'");
        return parsed;
    }
    const auto fits = [&](qint64 count, quint32 capacity, const char* what) {
        if (count < 0)
            fail(TextReadStatus::CountNegative, parsed.countLine,
                 std::string(what) + " count " + std::to_string(count) + " is negative");
        else if (count > static_cast<qint64>(capacity))
            fail(TextReadStatus::CountTooHigh, parsed.countLine,
                 std::string(what) + " count " + std::to_string(count) + " above the capacity " +
                     std::to_string(capacity));
        return status.ok();
    };
    if (fits(parsed.rowCount, maxRows, "row"))
        fits(parsed.colCount, maxCols, "column");
    return parsed;
}

void writeLineForm(std::ostream& out, const std::string& name, const TableCells& cells) {
    const quint32 rows = cells.rowCount();
    const quint32 cols = cells.colCount();
    out << "ID:  " << name << '\n';
    out << "COUNT:  " << std::to_string(rows) << '*' << std::to_string(cols) << '\n';
    for (quint32 r = 0; r < printableCount(cells.shownRows()); ++r) {
        out << std::to_string(cells.rowIndex(r)) << ": ";
        for (quint32 c = 0; c < printableCount(cells.shownCols()); ++c) {
            // The value is cut to an integer before it is printed with three decimals.
            const double whole = static_cast<double>(truncateTo<long long>(cells.cell(r, c)));
            out << '\t' << fixedNumber(whole, 3);
        }
        out << '\n';
    }
    out << '\n';
}

} // namespace detail
} // namespace Tupsim
