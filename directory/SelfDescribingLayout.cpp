// Identifier runs of self-describing images.
#include "directory/SelfDescribingLayout.h"

#include <algorithm>

namespace Tupsim {
namespace layout {

QList<QByteArray> identifiers(const QByteArray& ids, unsigned int type, std::uint64_t count) {
    QList<QByteArray> out;
    if (type == STRING) {
        const QList<QByteArray> pieces = ids.split('\0'); // the last piece follows the last zero
        for (int i = 0; i + 1 < pieces.size() && std::uint64_t(i) < count; ++i)
            out.append(pieces[i]);
        return out;
    }
    const int width = static_cast<int>(elementWidth(type));
    for (int at = 0; width > 0 && std::uint64_t(out.size()) < count && at + width <= ids.size();
         at += width)
        out.append(ids.mid(at, width));
    return out;
}

Rendering rendering(const HwSBlockDescription& table, std::size_t columns, std::size_t rowsRead) {
    std::size_t held = 0;
    std::size_t lastHeld = 0;
    for (std::size_t c = 0; c < table.values.size() && c < columns; ++c) {
        held += table.values[c].size();
        if (!table.values[c].empty())
            lastHeld = c + 1;
    }
    const std::size_t budget = 16 * (held + columns) + 4096;
    // A sound image holds a value for each row of its sized columns, so its cells stay within
    // the budget and it shows whole, trailing columns without values (type NONE) included.
    if (rowsRead == 0 || columns <= budget / rowsRead)
        return {columns, rowsRead};
    const std::size_t shown = std::min(columns, lastHeld);
    const std::size_t rows = shown == 0 ? rowsRead : std::min(rowsRead, budget / shown);
    return {shown, rows};
}

} // namespace layout
} // namespace Tupsim
