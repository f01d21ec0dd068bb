// Rebuilds a whole image with some blocks replaced, keeping every other byte as it was.
#include "ImageAssembler.h"

namespace epromtool {

bool ImageAssembler::assemble(const QByteArray& original, const Chain& chain,
                              const QMap<int, QByteArray>& replacements, QByteArray& result,
                              QString& error) {
    if (chain.broken()) {
        error = QStringLiteral("the chain is broken");
        return false;
    }
    QByteArray rebuilt;
    rebuilt.reserve(original.size());
    for (int i = 0; i < chain.blocks.size(); ++i)
        rebuilt += replacements.contains(i) ? replacements.value(i) : chain.blocks[i].image;
    if (rebuilt.size() > original.size()) {
        error = QStringLiteral("the new chain needs %1 bytes, the image holds %2")
                    .arg(rebuilt.size())
                    .arg(original.size());
        return false;
    }
    rebuilt += original.mid(chain.used);
    if (rebuilt.size() > original.size())
        rebuilt.truncate(original.size());
    else if (rebuilt.size() < original.size())
        rebuilt += QByteArray(original.size() - rebuilt.size(), '\xFF');
    result = rebuilt;
    return true;
}

} // namespace epromtool
