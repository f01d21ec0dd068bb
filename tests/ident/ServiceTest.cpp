// Service data, statistics, the modification lists, the step-attenuator counters and the event
// counter with its magic word.
#include "support/TestImages.h"

#include <HwDatablockCommonStatisticData.h>
#include <HwDatablockEventCount.h>
#include <HwDatablockModification.h>
#include <HwDatablockModification110.h>
#include <HwDatablockModification120.h>
#include <HwDatablockSAtt3OWLDCounter.h>
#include <HwDatablockSAtt6OWLDCounter.h>
#include <HwDatablockSAttCCounter.h>
#include <HwDatablockServiceData.h>
#include <HwDatablockStatistic.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(HwDatablockServiceData, DepartmentOperatingTimeAndDateFieldsTextForms) {
    ServiceRecorders services;
    HwDatablockServiceData nameless;
    EXPECT_EQ(printed(nameless), golden("ident/service_nameless.txt"));
    HwDatablockServiceData block(VARIANT_SERVICE_205);
    EXPECT_EQ(hex(block.getByteArrayData()),
              "cd 00 18 00 00 00 00 00 30 30 30 30 30 30 00 00 00 00 00 00 00 00 00 00");
    block.setDepartment("D12345XYZ");
    block.setServiceDate(0x58b1); // 2024-05-17
    block.setOpTimeHours(123456);
    block.setRepairNumber(42);
    block.setServiceCode(7);
    EXPECT_EQ(std::string(block.getDepartment(), 6), "D12345");
    EXPECT_EQ(printed(block), golden("ident/service.txt"));

    block.setOpTimeTurnOn(5);
    block.setOpTimeHours(300000); // wider than 18 bits
    EXPECT_EQ(hex(block.getByteArrayData().mid(16, 4)), "e0 93 14 00");
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));
    block.setOpTimeTurnOn(0x4003); // replaces the count, keeps the hours; bits beyond 31 fall away
    EXPECT_EQ(block.getOpTime(), (3u << 18) | 37856u);
    block.setOpTime(0xffffffff);
    EXPECT_EQ(block.getOpTimeHours(), 0x3ffffu);
    EXPECT_EQ(block.getOpTimeTurnOn(), 0x3fffu);

    // The date setters write into the operating time word; the date itself stays.
    block.setOpTime(0xffff0000);
    block.setServiceDateDay(5);
    EXPECT_EQ(block.getOpTime(), 0xffff0005u);
    block.setServiceDateMonth(0x1c); // masked to 4 bits
    EXPECT_EQ(block.getOpTime(), 0xffff0185u);
    block.setServiceDateYear(1980 + 200); // masked to bits 15..9
    EXPECT_EQ(block.getOpTime(), 0xffff9185u);
    EXPECT_EQ(hex(block.getByteArrayData().mid(14, 2)), "b1 58");

    HwDatablockStatistic statistic;
    EXPECT_EQ(hex(statistic.getByteArrayData()), "2c 01 0c 00 00 00 00 00 00 00 00 00");
    statistic.setOpHours(54321);
    EXPECT_EQ(printed(statistic), golden("ident/statistic.txt"));
}

TEST(HwDatablockCommonStatisticData, DataIsCappedTextAndSwapOfTheHeader) {
    ServiceRecorders services;
    HwDatablockCommonStatisticData block(VARIANT_BACKUP_OF_POWERON_COUNT);
    EXPECT_EQ(block.getByteArrayData(), freshImage(11311, 524).replace(8, 2, bytesOf({0, 2})));
    QByteArray many(600, 0);
    for (int i = 0; i < many.size(); ++i)
        many[i] = static_cast<char>((i * 7) & 0xff);
    block.setCommonStatisticData(reinterpret_cast<const unsigned char*>(many.constData()), 20);
    unsigned int length = 0;
    ASSERT_NE(block.getCommonStatisticData(&length), nullptr);
    EXPECT_EQ(length, 20u);
    EXPECT_EQ(printed(block), golden("ident/common_statistic.txt"));
    block.setCommonStatisticData(reinterpret_cast<const unsigned char*>(many.constData()), 600);
    EXPECT_EQ(block.getCommonStatisticDataLength(), 512u);
    EXPECT_EQ(block.getByteArrayData().mid(12), many.left(512));
    EXPECT_EQ(block.getChecksum(), 0);

    // The swap takes the header unchecked, clears the alignment and leaves the data empty.
    auto record = recordOf<HwSDatablockCommonStatisticData>(
        bytesOf({0x31, 0x2c, 0x0c, 0x02, 0x34, 0x12, 4, 0, 3, 0, 0, 0, 9, 8, 7, 6}));
    HwDatablockCommonStatisticData swapped(VARIANT_POWERON_COUNT);
    swapped.swapBlock(&record);
    EXPECT_EQ(
        hex(swapped.getByteArrayData()),
        hex(bytesOf({0x31, 0x2c, 0x0c, 0x02, 0x34, 0x12, 0, 0, 0, 2, 0, 0}) + QByteArray(512, 0)));
}

namespace {

// Both ten-entry kinds share the entry access and the swap; run the same checks on each.
template <typename Block, typename Record> void checkEntryAccessAndSwap() {
    Block block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(100, 28)); // id 100 for both kinds
    block.setServiceCode(0, 0x8123);
    EXPECT_EQ(block.getAction(0), 2);
    EXPECT_EQ(block.getCircularNr(0), 0x123);
    block.setAction(0, 5); // two bits only
    EXPECT_EQ(block.getServiceCode(0), 0x4123);
    block.setCircularNr(0, 0xffff);
    block.setServiceCode(9, 0x0102);
    EXPECT_EQ(hex(block.getByteArrayData().mid(8, 2)), "ff 7f");
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
    EXPECT_EQ(hex(swapped.getByteArrayData()),
              hex(before.left(4) + bytesOf({0x55, 0x55, 0, 0}) + before.mid(8)));
}

// Event counter 20500 of 32 bytes: CRC-32 field 0x78563412 (replaced by the magic word), update
// index 1, 1 row of 2 UINT32 columns without identifiers, padding to 24, then counters 1 and 2.
const QByteArray counter = sealed(
    bytesOf({0x14, 0x50, 0x20, 0,    0,      0,      0, 0, 0x12, 0x34, 0x56, 0x78, 0, 1, 0, 1,
             0,    2,    NONE, NONE, UINT32, UINT32, 0, 0, 1,    0,    0,    0,    2, 0, 0, 0}));

} // namespace

TEST(HwDatablockModification, EntryAccessAndSwapOfAllThreeKinds) {
    checkEntryAccessAndSwap<HwDatablockModification, HwSDatablockModification>();
    checkEntryAccessAndSwap<HwDatablockModification110, HwSDatablockModification110>();

    HwDatablockModification120 block;
    EXPECT_EQ(hex(block.getByteArrayData()), "78 00 08 00 00 00 00 00");

    QByteArray image = bytesOf({0x78, 0,    21,   0,    0,    0, 0, 0, 0x78, 0x56, 0x34,
                                0x12, 0xff, 0xff, 0xff, 0xff, 7, 0, 0, 0,    0xaa});
    load(block, image);
    EXPECT_EQ(block.getServiceCode(3), 0u);
    EXPECT_EQ(printed(block), golden("ident/modification120.txt"));

    block.swapBlock();
    // The swap turns every code into the processor's order: nothing changes on a little-endian
    // host, a big-endian one reverses each code; the header stays, so the block keeps its id.
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    EXPECT_EQ(hex(block.getByteArrayData()),
              "78 00 15 00 00 00 00 00 12 34 56 78 ff ff ff ff 00 00 00 07 aa");
#else
    EXPECT_EQ(block.getByteArrayData(), image);
#endif
    load(block, image.left(20)); // the last code ends with the image
    EXPECT_EQ(block.getNumberOfServiceCode(), 3u);
    load(block, image.left(11));
    EXPECT_EQ(block.getNumberOfServiceCode(), 0u);
    load(block, image.left(3));
    block.swapOwnImage();
    EXPECT_EQ(block.getByteArrayData(), image.left(3));
    EXPECT_EQ(block.getNumberOfServiceCode(), 0u);
}

TEST(Counters, ValidChecksumsInstanceIdsAndTextForms) {
    HwDatablockSAttCCounter block(VARIANT_SATTC_HPCOUNTER);
    EXPECT_EQ(hex(block.getByteArrayData()), "26 2c 10 00 ca d3 00 00 00 00 00 00 00 00 00 00");

    block.setCounterValue(0x01020304, 1);
    EXPECT_EQ(hex(block.getByteArrayData()), "26 2c 10 00 c4 cf 00 00 00 00 00 00 04 03 02 01");
    const QByteArray before = block.getByteArrayData();
    block.setCounterValue(9, 2);
    block.setCounterValue(9, 0xffff);
    EXPECT_EQ(block.getByteArrayData(), before);
    EXPECT_EQ(block.getCounterValue(2), 0u);

    // The swap takes the record unchecked; the id stays the instance's.
    // id 11300, size 16, checksum 0x0bad, counters 12 and 3456, as the EEPROM holds them
    const HwSDatablockSAttCCounter record = recordOf<HwSDatablockSAttCCounter>(
        bytesOf({0x24, 0x2c, 0x10, 0x00, 0xad, 0x0b, 0x00, 0x00, 0x0c, 0, 0, 0, 0x80, 0x0d, 0, 0}));
    block.swapBlock(&record);
    EXPECT_EQ(hex(block.getByteArrayData()), "26 2c 10 00 ad 0b 00 00 0c 00 00 00 80 0d 00 00");

    for (int id = 11300; id <= 11303; ++id) {
        HwDatablockSAttCCounter block(static_cast<HwEVariantEepromDatablock>(id));
        block.setCounterValue(12, 0);
        block.setCounterValue(3456, 1);
        EXPECT_EQ(printed(block), golden("ident/sattc_" + std::to_string(id) + ".txt")) << id;
    }
    HwDatablockSAttCCounter unknown(static_cast<HwEVariantEepromDatablock>(11304));
    EXPECT_EQ(printed(unknown), "ID:               \nCOUNT_VALUE:    0\t\t0\n\n");

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

TEST(EventCount, MagicWordTakesThePlaceOfTheCrcUpdatesOnlyInsideTheDataArea) {
    HwDatablockEventCount block;
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 0c 00 00 00 00 00 0c 00 2d 45");
    block.setData(reinterpret_cast<const unsigned char*>(counter.constData()), 32);
    EXPECT_EQ(hex(block.getByteArrayData().mid(8, 4)), "20 00 2d 45"); // 0x452D0000 + size 32
    block.setDatablockClassTyp(HwDatablockClassNone);
    EXPECT_TRUE(block.verifyChecksum32()); // recognised by its magic word
    EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassEventCount);

    EXPECT_TRUE(block.updateEventCountBlock(0, 0x7F));
    EXPECT_TRUE(block.updateEventCountBlock(7, 0x09)); // the last data byte
    EXPECT_TRUE(block.updateEventCountBlock(8, 0xEE)); // equal to the data length
    EXPECT_TRUE(block.updateEventCountBlock(0xFFFFFFFFu, 0xEE));
    QByteArray expected = block.getByteArrayData();
    EXPECT_EQ(hex(expected.mid(12)), hex(counter.mid(12, 12)) + " 7f 00 00 00 02 00 00 09");
    EXPECT_TRUE(block.verifyChecksum()); // refreshed after each update

    // A null image leaves the bytes, but the block is still marked; always true.
    EXPECT_TRUE(block.setData(nullptr, 8));
    EXPECT_EQ(block.getByteArrayData(), expected);
    // An image that ends within its header has no data area at all.
    block.setData(reinterpret_cast<const unsigned char*>(counter.constData()), 20);
    expected = block.getByteArrayData();
    EXPECT_TRUE(block.updateEventCountBlock(0, 0xEE));
    EXPECT_EQ(block.getByteArrayData(), expected);
}
