// Lines of cells printed with every column as wide as its widest cell.
#include "directory/TextColumns.h"

#include <algorithm>

namespace Tupsim {

void printColumns(std::ostream& out, const std::vector<std::vector<std::string>>& lines,
                  const std::vector<std::size_t>& minWidths) {
    std::vector<std::size_t> widths = minWidths;
    for (const auto& line : lines) {
        if (widths.size() < line.size())
            widths.resize(line.size(), 0);
        for (std::size_t c = 0; c < line.size(); ++c)
            widths[c] = std::max(widths[c], line[c].size());
    }
    for (const auto& line : lines) {
        for (std::size_t c = 0; c < line.size(); ++c) {
            out << line[c];
            if (c + 1 < line.size())
                out << std::string(widths[c] - line[c].size() + 1, ' ');
        }
        out << '\n';
    }
}

} // namespace Tupsim
