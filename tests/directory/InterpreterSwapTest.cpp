// Per-id byte-order conversion of the old-style blocks through the directory's switch.
#include "support/Blocks.h"

#include <EpromDatablock.h>
#include <HwDatablockTeshVectorLevconTempData.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(OldStyleConversion, SupportedAndRefusedIds) {
    for (int id : {2, 10, 110, 209, 300, 11310, 11313, 12001, 15690, 15700, 15852, 15853, 15862,
                   16000, 16003}) {
        HwDatablock block(false);
        load(block, QByteArray(64, '\0'));
        block.setBlockId(static_cast<unsigned short>(id));
        EXPECT_TRUE(
            HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, id, &block))
            << id;
        EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted) << id;
    }
    // In the directory but without a rule here (299, calibration blocks below 15690, misc-data
    // tables, the end block), ids between the catalogue's rows, and ids nobody knows.
    for (int id : {0, 1, 11, 111, 210, 299, 301, 10000, 11304, 11309, 11314, 12300, 15689, 15691,
                   15802, 15863, 16004, 20000, 65535}) {
        HwDatablock block(false);
        QByteArray image = bytesOf({id & 0xFF, id >> 8, 12, 0, 0, 0, 0, 0, 1, 2, 3, 4});
        sealChecksum(image);
        load(block, image);
        EXPECT_FALSE(
            HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, id, &block))
            << id;
        EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatReference) << id;
        EXPECT_EQ(hex(block.getByteArrayData()), hex(image)) << id;
    }
    EXPECT_FALSE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 2, nullptr));
}

// On a little-endian host the per-id rules keep the bytes; what they change is the form, the
// size of a bare table header, and nothing past a short image.
TEST(OldStyleConversion, ConvertedBlocksKeepTheirFormThroughSettersAndChecks) {
    ServiceRecorders services;
    HwDatablockIdent ident;
    ident.swapDataTo(HwDataFormatConverted, 2, &ident);
    ASSERT_EQ(ident.getDataFormatTyp(), HwDataFormatConverted);
    ident.setSerialNumber(4712); // refreshes the checksum through the switch and back
    EXPECT_EQ(ident.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_EQ(ident.getSerialNumber(), 4712u);
    EXPECT_TRUE(ident.verifyChecksum());

    HwDatablockOroRfboAlcData alc;
    alc.swapDataTo(HwDataFormatConverted, 15731, &alc);
    alc.setRowCount(1);
    alc.setColCount(1);
    alc.setCalValue(-5, 0, 0);
    EXPECT_EQ(alc.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_TRUE(alc.verifyChecksum());
    EXPECT_EQ(alc.getCalValue(0, 0), -5);
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(OldStyleConversion, ShortImagesAreConvertedWithoutReadingPastThem) {
    // An identification image cut after five bytes stays five bytes long.
    HwDatablock cut(false);
    load(cut, bytesOf({2, 0, 44, 0, 0x17}));
    EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 2, &cut));
    EXPECT_EQ(cut.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_EQ(hex(cut.getByteArrayData()), "02 00 2c 00 17");

    // A table image of the bare header becomes a zeroed table of the class's size.
    HwDatablock header(false);
    header.setBlockId(15841);
    EXPECT_TRUE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 15841, &header));
    const QByteArray grown = header.getByteArrayData();
    ASSERT_EQ(grown.size(), HwDatablockTeshRfBoExtCalVecData().getByteArrayData().size());
    EXPECT_EQ(header.getId(), 15841u);
    EXPECT_EQ(header.getBlockSize(), static_cast<unsigned short>(grown.size()));
    EXPECT_EQ(grown.mid(8), QByteArray(grown.size() - 8, '\0'));

    // Nothing at all: no id, nothing to read.
    HwDatablock empty(false);
    load(empty, QByteArray());
    EXPECT_TRUE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 300, &empty));
    EXPECT_TRUE(empty.getByteArrayData().isEmpty());
    EXPECT_TRUE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 16001, &empty));
}
