// Identification and misc identification blocks: image layout, setters, import, text form.
#include "support/TestImages.h"

#include <HwDatablockIdent.h>
#include <HwDatablockMiscIdent.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// The filled ident image, checksum sealed here.
QByteArray filledIdentImage() {
    return sealed(bytesOf({0x02, 0x00, 0x2c, 0x00, 0x00, 0x00, 0x00, 0x00, // header
                           0x00, 0x20, 0x00, 0x00,                         // EEPROM size 8192
                           0x4e, 0x61, 0xbc, 0x00,                         // part 12345678
                           0x03, 0x11, 0x69, 0x00,                         // variant, hw, 105
                           0x06, 0x12, 0x0f, 0x00,                         // serial 987654
                           0xb1, 0x58, 0x07, 0x00, 0xb3, 0x04,             // date, read, test
                           'S',  'M',  'B',  '-',  'B',  '1',  '0',  '6',  0, 0, 0, 0, 0, 0}));
}

} // namespace

TEST(HwDatablockIdent, SettersStoreTheirFieldsAndTheNameIsCutAtFourteenBytes) {
    ServiceRecorders services;
    HwDatablockIdent block;
    EXPECT_EQ(hex(block.getByteArrayData()), hex(freshImage(2, 44)));
    EXPECT_EQ(block.getName(), QString());
    EXPECT_EQ(printed(block), golden("ident/ident_fresh.txt"));
    block.setEepromSize(8192);
    block.setPartNumber(12345678);
    block.setVariant(3);
    block.setHardwareCode(17);
    block.setProductIndex(105);
    block.setSerialNumber(987654);
    block.setProductDate((44 << 9) | (5 << 5) | 17); // 2024-05-17
    block.setReadCode(7);
    block.setTestInstruction(1203);
    block.setName(QStringLiteral("SMB-B106"));
    EXPECT_EQ(hex(block.getByteArrayData()), hex(filledIdentImage()));
    EXPECT_TRUE(block.verifyChecksum());
    EXPECT_EQ(block.getName(), QStringLiteral("SMB-B106"));
    EXPECT_EQ(printed(block), golden("ident/ident_filled.txt"));

    block.setName(QStringLiteral("ABCDEFGHIJKLMN"));
    EXPECT_EQ(block.getByteArrayData().mid(30), QByteArray("ABCDEFGHIJKLMN"));
    EXPECT_EQ(block.getName(), QStringLiteral("ABCDEFGHIJKLMN"));
    block.setName(QStringLiteral("0123456789ABCDEFGH"));
    EXPECT_EQ(block.getByteArrayData().mid(30), QByteArray("0123456789ABCD"));
    EXPECT_EQ(block.getByteArrayData().size(), 44);
    // A shorter name clears what a longer one left behind.
    block.setName(QStringLiteral("XY"));
    EXPECT_EQ(hex(block.getByteArrayData().mid(30)), "58 59 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(block.getName(), QStringLiteral("XY"));
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));

    // The swap takes the record as it is, size word and checksum unchecked.
    HwSDatablockIdent record = recordOf<HwSDatablockIdent>(filledIdentImage());
    record.blockSize = 40;
    record.checksum = 0xbeef;
    block.swapBlock(&record);
    EXPECT_EQ(block.getBlockSize(), 40);
    EXPECT_EQ(block.getChecksum(), 0xbeef);
    EXPECT_EQ(block.getSerialNumber(), 987654u);
}

TEST(HwDatablockIdent, ShortImagesReadZeroAndSwapInPlaceSafely) {
    ServiceRecorders services;
    HwDatablockIdent block;
    const QByteArray full = filledIdentImage();
    load(block, full.left(21));
    EXPECT_EQ(block.getProductIndex(), 105);
    EXPECT_EQ(block.getSerialNumber(), 0u);
    EXPECT_EQ(block.getName(), QString());
    EXPECT_EQ(block.getBlock(), nullptr);
    block.setSerialNumber(5);
    block.setName(QStringLiteral("X"));
    EXPECT_EQ(block.getByteArrayData(), full.left(21));

    // The in-place swap keeps the length and, on this host, every byte.
    block.swapOwnImage();
    EXPECT_EQ(block.getByteArrayData(), full.left(21));
    load(block, full);
    block.setDataFormatTyp(HwDataFormatConverted);
    block.swapOwnImage();
    EXPECT_EQ(block.getByteArrayData(), full);
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted);
    load(block, QByteArray());
    block.swapOwnImage();
    EXPECT_TRUE(block.getByteArrayData().isEmpty());
    EXPECT_EQ(printed(block).substr(0, 24), "# Das sind die Kopfdaten");
}

TEST(HwDatablockMiscIdent, IdComesFromTheConstructorAndNamesOnlyTwoIds) {
    ServiceRecorders services;
    HwDatablockMiscIdent aux(VARIANT_STREAM_AUX_IDENT);
    EXPECT_EQ(aux.getMiscBlockId(), VARIANT_STREAM_AUX_IDENT);
    EXPECT_EQ(aux.getByteArrayData(), freshImage(10504, 44));
    EXPECT_EQ(printed(aux).substr(0, 31), "ID:           STREAM_AUX_IDENT\n");
    HwDatablockMiscIdent other(static_cast<HwEVariantEepromDatablock>(10505));
    EXPECT_EQ(other.getId(), 10505u);
    EXPECT_EQ(printed(other), golden("ident/miscident_other.txt"));
}
