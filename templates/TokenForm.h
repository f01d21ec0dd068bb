// The token form of a table section ("ID:", "COUNT:", value lines): writer and reader.
#pragma once

#include "TextReadStatus.h"
#include "templates/TableCells.h"
#include "templates/TextCursor.h"

#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace Tupsim {
namespace detail {

struct TokenStyle {
    int precision;   // decimals of one value
    int bufferSize;  // characters a formatted value may take, terminating zero included
    bool rowPerLine; // every row on one line, also for vectors
};

extern const TokenStyle kTableStyle; // three decimals
extern const TokenStyle kWexWStyle;  // ten decimals, one line per row
extern const TokenStyle kMiscStyle;  // five decimals in 20 characters

void writeTokenIdLine(std::ostream& out, const std::string& name);
// Count line, value lines and the closing empty line.
void writeTokenBody(std::ostream& out, const TableCells& cells, const TokenStyle& style);

struct TokenSection {
    bool nameFound = false;
    quint32 rows = 0;
    quint32 cols = 0;
};

// Reads one value for cell (row, col) with formatted input; false when the value could not be
// read whole (the cursor is then failed).
using TokenCellReader = std::function<bool(TextCursor& in, quint32 row, quint32 col)>;
// Runs between the block name and "COUNT:".
using TokenSectionHook = std::function<void(TextCursor& in)>;

// How the token reader meets a malformed section.
struct TokenReadRules {
    // A missing "ID:" or name fails the read; otherwise the section is just not found.
    bool demandName;
    // Negative counts and values that cannot be read fail the read, and failures carry the line
    // they arose on; otherwise both pass as the conversion tools have always let them.
    bool reporting;
};

// Rewinds `in` and reads the section of `name` without ending the process. Cells are handed to
// `readCell` as they are read, so on a failure some may have been read already. The stream is
// read once from its start; it is left where and as the word-by-word reading would leave it.
TextReadStatus scanTokenForm(std::istream& in, const std::string& name, quint32 maxRows,
                             quint32 maxCols, const TokenReadRules& rules,
                             const TokenSectionHook& afterName, const TokenCellReader& readCell,
                             TokenSection& section);

// Rewinds `in` and reads the section of `name`. Ends the process on a malformed section:
// status 1 for a missing key, 2 for a count above the capacity.
TokenSection readTokenForm(std::istream& in, const std::string& name, quint32 maxRows,
                           quint32 maxCols, bool strict, const TokenSectionHook& afterName,
                           const TokenCellReader& readCell);

// "ID:", the name and the descriptor lines that open a section with descriptors.
void writeDescriptorHeader(std::ostream& out, const std::string& name,
                           const std::vector<std::string>& descriptors);
// Descriptor `number` (counted from 1) as its 16 characters, padded with blanks; empty when
// its key is not there, and then the stream stands where it stood before.
std::string readDescriptor(TextCursor& in, quint32 number);

// Reads words until one equals `key`; false when the text ends first.
bool searchWord(TextCursor& in, const std::string& key);

} // namespace detail
} // namespace Tupsim
