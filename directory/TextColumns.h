// Lines of cells printed with every column as wide as its widest cell.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace Tupsim {

// Column c is at least minWidths[c] wide; one blank separates columns; the last cell of a line
// is not padded.
void printColumns(std::ostream& out, const std::vector<std::vector<std::string>>& lines,
                  const std::vector<std::size_t>& minWidths);

} // namespace Tupsim
