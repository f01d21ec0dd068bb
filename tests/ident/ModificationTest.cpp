// Modification lists: the two ten-entry kinds and the variable-length kind.
#include "support/Blocks.h"

#include <HwDatablockModification.h>
#include <HwDatablockModification110.h>
#include <HwDatablockModification120.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// Both ten-entry kinds share the entry access and the swap; run the same checks on each.
template <typename Block, typename Record> void checkEntryAccessAndSwap() {
    Block block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(100, 28)); // id 100 for both kinds
    block.setServiceCode(0, 0x8123);
    EXPECT_EQ(block.getAction(0), 2);
    EXPECT_EQ(block.getCircularNr(0), 0x123);
    block.setAction(0, 1);
    EXPECT_EQ(block.getServiceCode(0), 0x4123);
    block.setAction(0, 6); // two bits only
    EXPECT_EQ(block.getServiceCode(0), 0x8123);
    block.setCircularNr(0, 0xffff);
    EXPECT_EQ(block.getServiceCode(0), 0xbfff);
    block.setServiceCode(9, 0x0102);
    EXPECT_EQ(hex(block.getByteArrayData().mid(8, 2)), "ff bf");
    EXPECT_EQ(hex(block.getByteArrayData().mid(26, 2)), "02 01");
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));

    const QByteArray before = block.getByteArrayData();
    block.setServiceCode(10, 1);
    block.setAction(200, 1);
    block.setCircularNr(10, 1);
    EXPECT_EQ(block.getByteArrayData(), before);
    EXPECT_EQ(block.getServiceCode(10), 0);
    EXPECT_EQ(block.getAction(255), 0);
    EXPECT_EQ(block.getCircularNr(10), 0);

    // The swap takes the record unchecked but clears the alignment.
    Record record = recordOf<Record>(before);
    record.alignment = 4;
    record.checksum = 0x5555;
    Block swapped;
    swapped.swapBlock(&record);
    EXPECT_EQ(swapped.getAlignment(), 0);
    EXPECT_EQ(swapped.getChecksum(), 0x5555);
    EXPECT_EQ(swapped.getByteArrayData().mid(8), before.mid(8));
}

} // namespace

TEST(HwDatablockModification, EntryAccessAndSwapOfBothTenEntryKinds) {
    checkEntryAccessAndSwap<HwDatablockModification, HwSDatablockModification>();
    checkEntryAccessAndSwap<HwDatablockModification110, HwSDatablockModification110>();
}

TEST(HwDatablockModification120, CodesAreWholeWordsUpToTheEndOfTheImage) {
    HwDatablockModification120 block;
    EXPECT_EQ(hex(block.getByteArrayData()), "78 00 08 00 00 00 00 00");
    EXPECT_EQ(block.getNumberOfServiceCode(), 0u);

    QByteArray image = bytesOf({0x78, 0,    21,   0,    0,    0, 0, 0, 0x78, 0x56, 0x34,
                                0x12, 0xff, 0xff, 0xff, 0xff, 7, 0, 0, 0,    0xaa});
    load(block, image);
    EXPECT_EQ(block.getNumberOfServiceCode(), 3u);
    EXPECT_EQ(block.getServiceCode(0), 0x12345678u);
    EXPECT_EQ(block.getServiceCode(2), 7u);
    EXPECT_EQ(block.getServiceCode(3), 0u);
    EXPECT_EQ(printed(block), golden("ident/modification120.txt"));

    block.swapBlock();
    EXPECT_EQ(block.getByteArrayData(), image);
    EXPECT_EQ(block.getNumberOfServiceCode(), 3u);

    load(block, image.left(20)); // the last code ends with the image
    EXPECT_EQ(block.getNumberOfServiceCode(), 3u);
    load(block, image.left(11));
    EXPECT_EQ(block.getNumberOfServiceCode(), 0u);
    load(block, image.left(3));
    block.swapOwnImage();
    EXPECT_EQ(block.getByteArrayData(), image.left(3));
    EXPECT_EQ(block.getNumberOfServiceCode(), 0u);
}
