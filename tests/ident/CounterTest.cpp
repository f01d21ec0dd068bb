// Step-attenuator counters and the opaque IPC user blocks.
#include "BlockTestSupport.h"
#include "support/Recorders.h"

#include <HwDatablockIpcUser10000.h>
#include <HwDatablockIpcUser10040.h>
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
    // Beyond the block: nothing read or written.
    const QByteArray before = block.getByteArrayData();
    block.setCounterValue(9, 2);
    block.setCounterValue(9, 0xffff);
    EXPECT_EQ(block.getByteArrayData(), before);
    EXPECT_EQ(block.getCounterValue(2), 0u);
}

TEST(HwDatablockSAttCCounter, ImportIgnoresTheRecordChecksum) {
    ServiceRecorders services;
    HwSDatablockSAttCCounter record{11300, 16, 0x0bad, 0, {12, 3456}};
    HwDatablockSAttCCounter block(VARIANT_SATTC_OVLDCOUNTER);
    ASSERT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.getCounterValue(0), 12u);
    EXPECT_EQ(block.getCounterValue(1), 3456u);
    EXPECT_TRUE(block.verifyChecksum()); // a fresh one, not the record's
    EXPECT_TRUE(services.errors.signalled.empty());
    EXPECT_EQ(block.setBlock(nullptr), 1);

    HwDatablockSAttCCounter swapped(VARIANT_SATTC_OVLDCOUNTER);
    swapped.swapBlock(&record);
    EXPECT_EQ(swapped.getChecksum(), 0x0bad);
    EXPECT_EQ(swapped.getCounterValue(1), 3456u);
}

TEST(HwDatablockSAttCCounter, TextFormByIdWithReplacementCharacters) {
    for (int id = 11300; id <= 11303; ++id) {
        HwDatablockSAttCCounter block(static_cast<HwEVariantEepromDatablock>(id));
        block.setCounterValue(12, 0);
        block.setCounterValue(3456, 1);
        EXPECT_EQ(printed(block), golden("sattc_" + std::to_string(id) + ".txt")) << id;
    }
    HwDatablockSAttCCounter unknown(static_cast<HwEVariantEepromDatablock>(11304));
    EXPECT_EQ(printed(unknown), "ID:               \nCOUNT_VALUE:    0\t\t0\n\n");
}

TEST(HwDatablockSAtt3OWLDCounter, InstanceIdImportAndTextWithoutEmptyLine) {
    ServiceRecorders services;
    HwDatablockSAtt3OWLDCounter second(1);
    EXPECT_EQ(hex(second.getByteArrayData()), "6d 29 0c 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(printed(second), golden("satt3_second.txt"));

    HwSDatablockSAtt3OWLDCounter record{10604, 12, 0, 0, 99};
    record = sealed(record);
    ASSERT_EQ(second.setBlock(&record), 0);
    EXPECT_EQ(second.getId(), 10605u); // id and size stay as constructed
    EXPECT_EQ(second.getCounterValue(0), 99u);
    EXPECT_EQ(second.getChecksum(), record.checksum);

    HwDatablockSAtt3OWLDCounter first;
    first.setCounterValue(99, 0);
    EXPECT_TRUE(sumsToZero(first.getByteArrayData()));
    EXPECT_EQ(printed(first), golden("satt3_first.txt"));

    const HwSDatablockSAtt3OWLDCounter bad = spoiled(record);
    EXPECT_EQ(first.setBlock(&bad), 1);
    EXPECT_EQ(first.getCounterValue(0), 99u);
    expectRejected(services, 1040001, "   HwDatablockSAtt3OWLDCounter");
}

TEST(HwDatablockSAtt6OWLDCounter, InstanceIdImportAndTextWithoutEmptyLine) {
    ServiceRecorders services;
    HwDatablockSAtt6OWLDCounter first;
    EXPECT_EQ(hex(first.getByteArrayData()), "c3 2b 0c 00 00 00 00 00 00 00 00 00");
    first.setCounterValue(4000000000u, 0);
    EXPECT_EQ(printed(first), golden("satt6_first.txt"));

    HwDatablockSAtt6OWLDCounter second(1);
    HwSDatablockSAtt6OWLDCounter record{11203, 12, 0, 0, 1};
    record = sealed(record);
    ASSERT_EQ(second.setBlock(&record), 0);
    EXPECT_EQ(second.getId(), 11204u);
    EXPECT_EQ(printed(second), golden("satt6_second.txt"));

    const HwSDatablockSAtt6OWLDCounter bad = spoiled(record);
    EXPECT_EQ(second.setBlock(&bad), 1);
    expectRejected(services, 1040001, "   HwDatablockSAtt6OWLDCounter");
}

TEST(HwDatablockIpcUser10000, RightIdAndSizeAreAcceptedEvenWithABadChecksum) {
    ServiceRecorders services;
    HwDatablockIpcUser10000 block;
    EXPECT_EQ(block.getByteArrayData(),
              bytesOf({0x10, 0x27, 0x38, 0, 0, 0, 0, 0}) + QByteArray(48, 0));

    HwSDatablockIpcUser10000 record;
    std::memset(&record, 0, sizeof record);
    record.blockId = 10000;
    record.blockSize = 56;
    record.checksum = 0x0bad;
    std::memcpy(record.data, "Hello", 5);
    ASSERT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.getByteArrayData(), recordBytes(record));
    EXPECT_EQ(block.getChecksum(), 0x0bad);
    EXPECT_EQ(printed(block), golden("ipc10000.txt"));

    // Another id passes only with a good checksum; then the size word limits the copy.
    HwSDatablockIpcUser10000 other = record;
    other.blockId = 10001;
    other.blockSize = 12;
    other = sealed(other);
    HwDatablockIpcUser10000 partial;
    ASSERT_EQ(partial.setBlock(&other), 0);
    EXPECT_EQ(partial.getByteArrayData(), recordBytes(other).left(12) + QByteArray(44, 0));
    EXPECT_TRUE(services.errors.signalled.empty());

    const HwSDatablockIpcUser10000 bad = spoiled(other);
    EXPECT_EQ(partial.setBlock(&bad), 1);
    EXPECT_EQ(partial.getId(), 10001u);
    EXPECT_EQ(partial.setBlock(nullptr), 1);
    expectRejected(services, 1040001, "   HwDatablockIpcUser10000");
}

TEST(HwDatablockIpcUser10040, DataRunsFromOffsetFour) {
    ServiceRecorders services;
    HwDatablockIpcUser10040 block;
    EXPECT_EQ(block.getByteArrayData(), bytesOf({0x38, 0x27, 0x5e, 0}) + QByteArray(90, 0));

    HwSDatablockIpcUser10040 record;
    std::memset(&record, 0, sizeof record);
    record.blockId = 10040;
    record.blockSize = 94;
    for (int i = 0; i < 26; ++i)
        record.data[i] = static_cast<quint8>('A' + i);
    ASSERT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.getByteArrayData(), recordBytes(record));
    EXPECT_EQ(block.getChecksum(), 0x4241); // "AB"
    EXPECT_EQ(printed(block), golden("ipc10040.txt"));

    HwSDatablockIpcUser10040 wrong = record;
    wrong.blockSize = 92;
    EXPECT_EQ(block.setBlock(&wrong), 1);
    expectRejected(services, 1040001, "   HwDatablockIpcUser10040");
}
