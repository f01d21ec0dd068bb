// Walks the block chain of a whole EEPROM image, never past its end.
#include "ChainWalker.h"

#include "core/HwBytes.h"

namespace epromtool {

namespace {

QString bytesText(int count) {
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(count);
}

BlockEntry entryAt(const QByteArray& image, int offset, quint16 id, int size, bool isEnd) {
    BlockEntry entry;
    entry.offset = offset;
    entry.id = id;
    entry.size = size;
    entry.isEnd = isEnd;
    entry.image = image.mid(offset, size);
    return entry;
}

} // namespace

Chain ChainWalker::walk(const QByteArray& image) {
    using Tupsim::bytes::getLE;
    Chain chain;
    chain.imageSize = image.size();
    auto fail = [&chain](int offset, const QString& text) {
        chain.chainProblems.append(Problem{offset, text});
        return chain;
    };
    if (image.isEmpty())
        return fail(0, QStringLiteral("the image is empty"));

    int offset = 0;
    for (;;) {
        const int left = image.size() - offset;
        if (left == 0)
            return fail(offset, QStringLiteral("no end block: the chain runs to the end of the "
                                               "image"));
        if (left >= 2 && getLE<quint16>(image, offset) == EndId) {
            if (left < EndBlockSize)
                return fail(
                    offset,
                    QStringLiteral("end block cut short: %1 of 4 left").arg(bytesText(left)));
            // The end block is FF FF 00 00; erased memory reads FF FF FF FF.
            const quint16 endData = getLE<quint16>(image, offset + 2);
            if (endData != 0)
                return fail(
                    offset,
                    QStringLiteral("end block reads %1 instead of FF FF 00 00%2")
                        .arg(QString::fromLatin1(
                                 image.mid(offset, EndBlockSize).toHex(' ').toUpper()),
                             endData == 0xFFFF ? QStringLiteral(" (erased memory?)") : QString()));
            chain.blocks.append(entryAt(image, offset, EndId, EndBlockSize, true));
            chain.used = offset + EndBlockSize;
            return chain;
        }
        if (left < HeaderSize)
            return fail(
                offset,
                QStringLiteral("block header cut short: %1 of 8 left").arg(bytesText(left)));
        const quint16 id = getLE<quint16>(image, offset);
        const quint16 size = getLE<quint16>(image, offset + 2);
        if (size < HeaderSize)
            return fail(offset, QStringLiteral("block %1 has size %2, less than its 8-byte header")
                                    .arg(id)
                                    .arg(size));
        if (size > left)
            return fail(offset, QStringLiteral("block %1 of %2 runs past the end of the image "
                                               "(%3 left)")
                                    .arg(QString::number(id), bytesText(size), bytesText(left)));
        chain.blocks.append(entryAt(image, offset, id, size, false));
        offset += size;
    }
}

} // namespace epromtool
