// diffImages: how blocks pair up, which header fields changed and how many payload bytes differ.
#include "support/TestImages.h"

#include <ImageDiff.h>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// "kind id offsetA/offsetB sizeA/sizeB [field before->after ...] bytes".
QStringList described(const ImageDiff& diff) {
    static const char* kinds[] = {"changed", "removed", "added"};
    QStringList lines;
    for (const BlockDifference& d : diff.differences) {
        QString line = QStringLiteral("%1 %2 %3/%4 %5/%6")
                           .arg(QLatin1String(kinds[d.kind]))
                           .arg(d.id)
                           .arg(d.offsetA)
                           .arg(d.offsetB)
                           .arg(d.sizeA)
                           .arg(d.sizeB);
        for (const HeaderChange& change : d.headerChanges)
            line +=
                QStringLiteral(" %1 %2->%3").arg(change.field).arg(change.before).arg(change.after);
        lines << line + QStringLiteral(" %1").arg(d.bytesChanged);
    }
    return lines;
}

} // namespace

TEST(ImageDiff, ChangedRemovedAndAddedBlocks) {
    // B drops the ident block, grows block 10000 by two bytes and changes two of its payload
    // bytes, and adds block 10001.
    QByteArray calib = calibBlock() + bytesOf({0x05, 0x06});
    calib[2] = 0x0E;
    calib[8] = 0x11;
    calib[11] = 0x44;
    sealChecksum(calib);
    const QByteArray added = sealed(bytesOf({0x11, 0x27, 0x08, 0x00, 0, 0, 0, 0}));
    const EepromImage a = EepromImage::fromBytes(goodImage());
    const EepromImage b =
        EepromImage::fromBytes(calib + selfDescribingBlock() + added + endBlock());
    const ImageDiff diff = diffImages(a, b);
    EXPECT_EQ(described(diff),
              QStringList({"removed 2 0/-1 16/0 0",
                           QStringLiteral("changed 10000 16/0 12/14 size 12->14 checksum %1->%2 4")
                               .arg(word(calibBlock(), 4))
                               .arg(word(calib, 4)),
                           "added 10001 -1/34 0/8 0"}));
    EXPECT_TRUE(diff.freeSpaceDiffers);
    EXPECT_TRUE(diffImages(b, b).differences.isEmpty());
}

TEST(ImageDiff, RepeatedIdsPairInOrderAndFreeSpaceCountsApart) {
    QByteArray second = calibBlock();
    second[6] = 0x01; // alignment 1
    sealChecksum(second);
    const QByteArray chainA = calibBlock() + calibBlock() + endBlock();
    const EepromImage a = EepromImage::fromBytes(chainA + QByteArray(4, '\xFF'));
    const EepromImage b =
        EepromImage::fromBytes(calibBlock() + second + endBlock() + QByteArray(4, '\xFF'));
    const ImageDiff diff = diffImages(a, b);
    EXPECT_EQ(
        described(diff),
        QStringList(QStringLiteral("changed 10000 12/12 12/12 checksum %1->%2 alignment 0->1 0")
                        .arg(word(calibBlock(), 4))
                        .arg(word(second, 4))));
    EXPECT_FALSE(diff.freeSpaceDiffers);

    const ImageDiff freeOnly =
        diffImages(a, EepromImage::fromBytes(chainA + bytesOf({0xFF, 0xFF, 0x00, 0xFF})));
    EXPECT_TRUE(freeOnly.differences.isEmpty());
    EXPECT_TRUE(freeOnly.freeSpaceDiffers);
    // A broken chain has no free space to compare.
    EXPECT_FALSE(diffImages(a, EepromImage::fromBytes(chainA.left(27))).freeSpaceDiffers);
}
