// The token form of a table section: writer and the word-based reader.
#include "templates/TokenForm.h"

#include "templates/TableLayout.h"
#include "templates/TextFormat.h"

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

// The reader serves conversion tools: a section it cannot find ends the process.
void demand(bool found, const std::string& key) {
    if (found)
        return;
    std::cerr << "can not find string:  " << key << "  in ASCII-File" << std::endl;
    std::exit(1);
}

void checkCapacity(quint32 count, quint32 capacity, const std::string& name) {
    // Compared as signed numbers, as the files have always been checked.
    if (static_cast<qint32>(count) > static_cast<qint32>(capacity)) {
        std::cerr << " count of Block " << name << " is too high" << std::endl;
        std::exit(2);
    }
}

} // namespace

void writeTokenIdLine(std::ostream& out, const std::string& name) {
    out << "ID:  " << name << '\n';
}

void writeTokenBody(std::ostream& out, const TableCells& cells, const TokenStyle& style) {
    const quint32 rows = cells.rowCount();
    const quint32 cols = cells.colCount();
    out << "COUNT:  " << std::to_string(rows) << '*' << std::to_string(cols) << '\n';
    const quint32 shownRows = printableCount(rows);
    const quint32 shownCols = printableCount(cols);
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

TokenSection readTokenForm(std::istream& in, const std::string& name, quint32 maxRows,
                           quint32 maxCols, bool strict, const TokenSectionHook& afterName,
                           const TokenCellReader& readCell) {
    TokenSection section;
    in.clear();
    in.seekg(0);
    const bool idFound = searchWord(in, "ID:");
    if (strict)
        demand(idFound, "ID:");
    section.nameFound = idFound && searchWord(in, name);
    if (strict)
        demand(section.nameFound, name);
    if (!section.nameFound)
        return section;
    if (afterName)
        afterName(in);
    demand(searchWord(in, "COUNT:"), "COUNT:");
    in >> section.rows;
    demand(skipTo(in, '*'), "*");
    in >> section.cols;
    checkCapacity(section.rows, maxRows, name);
    checkCapacity(section.cols, maxCols, name);
    for (quint32 r = 0; r < section.rows; ++r) {
        demand(skipTo(in, ':'), ":");
        // Once the stream has failed no read changes anything: cells past the capacity are
        // dropped anyway, so the loop may stop there.
        for (quint32 c = 0; c < section.cols && (in || c < maxCols); ++c)
            readCell(in, r, c);
    }
    return section;
}

} // namespace detail
} // namespace Tupsim
