// The parts of the block catalogue that hold for every implementation.
#include "BlockCatalogue.h"

#include "ChainDiff.h"

namespace epromtool {

BlockCatalogue::~BlockCatalogue() = default;

QString BlockCatalogue::describeChange(const QByteArray& before, const QByteArray& after) {
    const int bytes = ChainDiff::payloadBytesChanged(before, after);
    return bytes == 1 ? QStringLiteral("1 byte changed")
                      : QStringLiteral("%1 bytes changed").arg(bytes);
}

} // namespace epromtool
