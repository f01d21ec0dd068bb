// Step-attenuator counters: layout, counter access and text forms.
#include "support/Blocks.h"

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
    EXPECT_EQ(hex(block.getByteArrayData().mid(12)), "04 03 02 01");
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));
    EXPECT_EQ(block.getCounterValue(1), 0x01020304u);
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
    EXPECT_TRUE(sumsToZero(first.getByteArrayData()));
    EXPECT_EQ(printed(first), golden("ident/satt3_first.txt"));

    HwDatablockSAtt6OWLDCounter sixth;
    EXPECT_EQ(hex(sixth.getByteArrayData()), "c3 2b 0c 00 00 00 00 00 00 00 00 00");
    sixth.setCounterValue(4000000000u, 0);
    EXPECT_EQ(printed(sixth), golden("ident/satt6_first.txt"));
}
