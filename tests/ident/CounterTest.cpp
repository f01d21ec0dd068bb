// Counter blocks: the step-attenuator counters and the event counter with its magic word.
#include "support/TestImages.h"

#include <HwDatablockEventCount.h>
#include <HwDatablockSAtt3OWLDCounter.h>
#include <HwDatablockSAtt6OWLDCounter.h>
#include <HwDatablockSAttCCounter.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(HwDatablockSAttCCounter, ConstructedWithAValidChecksum) {
    HwDatablockSAttCCounter block(VARIANT_SATTC_HPCOUNTER);
    EXPECT_EQ(hex(block.getByteArrayData()), "26 2c 10 00 ca d3 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(block.getInstance(), VARIANT_SATTC_HPCOUNTER);

    block.setCounterValue(0x01020304, 1);
    EXPECT_EQ(hex(block.getByteArrayData()), "26 2c 10 00 c4 cf 00 00 00 00 00 00 04 03 02 01");
    const QByteArray before = block.getByteArrayData();
    block.setCounterValue(9, 2);
    block.setCounterValue(9, 0xffff);
    EXPECT_EQ(block.getByteArrayData(), before);
    EXPECT_EQ(block.getCounterValue(2), 0u);

    // The swap takes the record unchecked.
    HwSDatablockSAttCCounter record{11300, 16, 0x0bad, 0, {12, 3456}};
    block.swapBlock(&record);
    EXPECT_EQ(block.getChecksum(), 0x0bad);
    EXPECT_EQ(block.getCounterValue(1), 3456u);
}

TEST(HwDatablockSAttCCounter, TextFormByIdWithReplacementCharacters) {
    for (int id = 11300; id <= 11303; ++id) {
        HwDatablockSAttCCounter block(static_cast<HwEVariantEepromDatablock>(id));
        block.setCounterValue(12, 0);
        block.setCounterValue(3456, 1);
        EXPECT_EQ(printed(block), golden("ident/sattc_" + std::to_string(id) + ".txt")) << id;
    }
    HwDatablockSAttCCounter unknown(static_cast<HwEVariantEepromDatablock>(11304));
    EXPECT_EQ(printed(unknown), "ID:               \nCOUNT_VALUE:    0\t\t0\n\n");
}

TEST(OwldCounters, InstanceIdsAndTextWithoutEmptyLine) {
    HwDatablockSAtt3OWLDCounter second(1);
    EXPECT_EQ(hex(second.getByteArrayData()), "6d 29 0c 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(printed(second), golden("ident/satt3_second.txt"));
    HwDatablockSAtt3OWLDCounter first;
    first.setCounterValue(99, 0);
    EXPECT_EQ(printed(first), golden("ident/satt3_first.txt"));

    HwDatablockSAtt6OWLDCounter sixth;
    EXPECT_EQ(hex(sixth.getByteArrayData()), "c3 2b 0c 00 00 00 00 00 00 00 00 00");
    sixth.setCounterValue(4000000000u, 0);
    EXPECT_EQ(printed(sixth), golden("ident/satt6_first.txt"));
}

namespace {

// Event counter 20500 of 32 bytes: CRC-32 field 0x78563412 (replaced by the magic word), update
// index 1, 1 row of 2 UINT32 columns without identifiers, padding to 24, then counters 1 and 2.
QByteArray counterImage() {
    return sealed(
        bytesOf({0x14, 0x50, 0x20, 0,      0,      0, 0, 0, 0x12, 0x34, 0x56, 0x78, 0, 1, 0, 1, 0,
                 2,    NONE, NONE, UINT32, UINT32, 0, 0, 1, 0,    0,    0,    2,    0, 0, 0}));
}

void setImage(HwDatablockEventCount& block, const QByteArray& image) {
    block.setData(reinterpret_cast<const unsigned char*>(image.constData()),
                  static_cast<unsigned>(image.size()));
}

} // namespace

TEST(EventCount, MagicWordTakesThePlaceOfTheCrcUpdatesOnlyInsideTheDataArea) {
    HwDatablockEventCount block;
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 0c 00 00 00 00 00 0c 00 2d 45");
    EXPECT_EQ(block.getChecksum32(), 0x452D000Cu);
    setImage(block, counterImage());
    EXPECT_EQ(hex(block.getByteArrayData().mid(8, 4)), "20 00 2d 45"); // 0x452D0000 + size 32
    block.setDatablockClassTyp(HwDatablockClassNone);
    EXPECT_TRUE(block.verifyChecksum32()); // recognised by its magic word
    EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassEventCount);

    EXPECT_TRUE(block.updateEventCountBlock(0, 0x7F));
    EXPECT_TRUE(block.updateEventCountBlock(7, 0x09)); // the last data byte
    EXPECT_TRUE(block.updateEventCountBlock(8, 0xEE)); // equal to the data length
    EXPECT_TRUE(block.updateEventCountBlock(0xFFFFFFFFu, 0xEE));
    QByteArray expected = block.getByteArrayData();
    EXPECT_EQ(hex(expected.mid(12)), hex(counterImage().mid(12, 12)) + " 7f 00 00 00 02 00 00 09");
    EXPECT_TRUE(block.verifyChecksum()); // refreshed after each update

    // A null image leaves the bytes, but the block is still marked; always true.
    EXPECT_TRUE(block.setData(nullptr, 8));
    EXPECT_EQ(block.getByteArrayData(), expected);
    // An image that ends within its header has no data area at all.
    setImage(block, counterImage().left(20));
    expected = block.getByteArrayData();
    EXPECT_TRUE(block.updateEventCountBlock(0, 0xEE));
    EXPECT_EQ(block.getByteArrayData(), expected);
}
