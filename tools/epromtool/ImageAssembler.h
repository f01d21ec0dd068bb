// Rebuilds a whole image with some blocks replaced, keeping every other byte as it was.
#pragma once

#include "Chain.h"

#include <QByteArray>
#include <QMap>

namespace epromtool {

class ImageAssembler {
public:
    // `replacements` maps a block's position in the chain to its new bytes. The result keeps
    // the original length: a grown chain eats into the free space behind the end block, a
    // shrunk one leaves erased bytes (0xFF) at the end. False, with `error`, when the new
    // chain does not fit.
    static bool assemble(const QByteArray& original, const Chain& chain,
                         const QMap<int, QByteArray>& replacements, QByteArray& result,
                         QString& error);
};

} // namespace epromtool
