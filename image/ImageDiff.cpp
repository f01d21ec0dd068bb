// The block-by-block comparison of two EEPROM images.
#include "ImageDiff.h"

#include "core/BlockHeader.h"

#include <QHash>
#include <QPair>

namespace Tupsim {

namespace {

using BlockKey = QPair<quint16, int>; // id and its occurrence in the chain

QVector<BlockKey> keysOf(const EepromImage& image) {
    QHash<quint16, int> seen;
    QVector<BlockKey> keys;
    for (int i = 0; i < image.blockCount(); ++i)
        keys.append({image.block(i).id, seen[image.block(i).id]++});
    return keys;
}

BlockDifference differenceOf(BlockDifference::Kind kind, const ImageBlock* a, const ImageBlock* b) {
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
        quint16 header::BlockHeader::*field;
    } fields[] = {{"size", &header::BlockHeader::size},
                  {"checksum", &header::BlockHeader::checksum},
                  {"alignment", &header::BlockHeader::alignment}};
    const header::BlockHeader headA = header::read(a);
    const header::BlockHeader headB = header::read(b);
    for (const auto& field : fields) {
        const quint16 before = headA.*field.field;
        const quint16 after = headB.*field.field;
        if (before != after)
            difference.headerChanges.append({QLatin1String(field.name), before, after});
    }
}

// Payload bytes (behind the 8-byte header) that differ, counting bytes present in one only.
int payloadBytesChanged(const QByteArray& before, const QByteArray& after) {
    constexpr int Header = header::Size;
    const int longest = qMax(before.size(), after.size());
    int changed = 0;
    for (int i = Header; i < longest; ++i)
        changed += (i >= before.size() || i >= after.size() || before.at(i) != after.at(i)) ? 1 : 0;
    return changed;
}

} // namespace

ImageDiff diffImages(const EepromImage& a, const EepromImage& b) {
    const QVector<BlockKey> keysA = keysOf(a);
    const QVector<BlockKey> keysB = keysOf(b);
    QHash<BlockKey, int> indexB;
    for (int i = 0; i < keysB.size(); ++i)
        indexB.insert(keysB[i], i);

    ImageDiff diff;
    QVector<bool> matchedB(b.blockCount(), false);
    for (int i = 0; i < a.blockCount(); ++i) {
        const ImageBlock& blockA = a.block(i);
        if (blockA.isEnd)
            continue;
        const int j = indexB.value(keysA[i], -1);
        if (j < 0) {
            diff.differences.append(differenceOf(BlockDifference::Removed, &blockA, nullptr));
            continue;
        }
        matchedB[j] = true;
        const QByteArray bytesA = a.blockBytes(i);
        const QByteArray bytesB = b.blockBytes(j);
        if (bytesA == bytesB)
            continue;
        BlockDifference difference = differenceOf(BlockDifference::Changed, &blockA, &b.block(j));
        addHeaderChanges(difference, bytesA, bytesB);
        difference.bytesChanged = payloadBytesChanged(bytesA, bytesB);
        diff.differences.append(difference);
    }
    for (int j = 0; j < b.blockCount(); ++j)
        if (!matchedB[j] && !b.block(j).isEnd)
            diff.differences.append(differenceOf(BlockDifference::Added, nullptr, &b.block(j)));
    diff.freeSpaceDiffers = !a.chainBroken() && !b.chainBroken() &&
                            a.bytes().mid(a.bytesUsed()) != b.bytes().mid(b.bytesUsed());
    return diff;
}

} // namespace Tupsim
