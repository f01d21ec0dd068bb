// Identifier runs of self-describing images.
#include "directory/SelfDescribingLayout.h"

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

} // namespace layout
} // namespace Tupsim
