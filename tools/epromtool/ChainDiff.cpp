// Compares two walked images block by block.
#include "ChainDiff.h"

#include "core/HwBytes.h"

#include <QHash>
#include <QPair>

namespace epromtool {

namespace {

using BlockKey = QPair<quint16, int>; // id and its occurrence in the chain

QVector<BlockKey> keysOf(const Chain& chain) {
    QHash<quint16, int> seen;
    QVector<BlockKey> keys;
    for (const BlockEntry& block : chain.blocks)
        keys.append({block.id, seen[block.id]++});
    return keys;
}

BlockDifference differenceOf(BlockDifference::Kind kind, const BlockEntry* a, const BlockEntry* b) {
    BlockDifference difference;
    difference.kind = kind;
    difference.id = a ? a->id : b->id;
    difference.offsetA = a ? a->offset : -1;
    difference.offsetB = b ? b->offset : -1;
    difference.sizeA = a ? a->size : 0;
    difference.sizeB = b ? b->size : 0;
    return difference;
}

void addHeaderChanges(BlockDifference& difference, const QByteArray& a, const QByteArray& b) {
    static const struct {
        const char* name;
        int offset;
    } fields[] = {{"size", 2}, {"checksum", 4}, {"alignment", 6}};
    for (const auto& field : fields) {
        const quint16 before = Tupsim::bytes::getLE<quint16>(a, field.offset);
        const quint16 after = Tupsim::bytes::getLE<quint16>(b, field.offset);
        if (before != after)
            difference.headerChanges.append({QLatin1String(field.name), before, after});
    }
}

} // namespace

int ChainDiff::payloadBytesChanged(const QByteArray& before, const QByteArray& after) {
    constexpr int Header = 8;
    const int longest = qMax(before.size(), after.size());
    int changed = 0;
    for (int i = Header; i < longest; ++i)
        changed += (i >= before.size() || i >= after.size() || before.at(i) != after.at(i)) ? 1 : 0;
    return changed;
}

QVector<BlockDifference> ChainDiff::compare(const Chain& a, const Chain& b) {
    const QVector<BlockKey> keysA = keysOf(a);
    const QVector<BlockKey> keysB = keysOf(b);
    QHash<BlockKey, int> indexB;
    for (int i = 0; i < keysB.size(); ++i)
        indexB.insert(keysB[i], i);

    QVector<BlockDifference> differences;
    QVector<bool> matchedB(b.blocks.size(), false);
    for (int i = 0; i < a.blocks.size(); ++i) {
        const BlockEntry& blockA = a.blocks[i];
        if (blockA.isEnd)
            continue;
        const int j = indexB.value(keysA[i], -1);
        if (j < 0) {
            differences.append(differenceOf(BlockDifference::Removed, &blockA, nullptr));
            continue;
        }
        matchedB[j] = true;
        const BlockEntry& blockB = b.blocks[j];
        if (blockA.image == blockB.image)
            continue;
        BlockDifference difference = differenceOf(BlockDifference::Changed, &blockA, &blockB);
        addHeaderChanges(difference, blockA.image, blockB.image);
        difference.bytesChanged = payloadBytesChanged(blockA.image, blockB.image);
        differences.append(difference);
    }
    for (int j = 0; j < b.blocks.size(); ++j)
        if (!matchedB[j] && !b.blocks[j].isEnd)
            differences.append(differenceOf(BlockDifference::Added, nullptr, &b.blocks[j]));
    return differences;
}

bool ChainDiff::freeSpaceDiffers(const Chain& a, const QByteArray& imageA, const Chain& b,
                                 const QByteArray& imageB) {
    if (a.broken() || b.broken())
        return false;
    return imageA.mid(a.used) != imageB.mid(b.used);
}

} // namespace epromtool
