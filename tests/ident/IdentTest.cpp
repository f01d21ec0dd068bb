// Identification blocks: ident and misc ident, the mainboard's model, serial number, MAC and
// time monitoring, and the VCO ident block.
#include "support/TestImages.h"

#include <HwDatablockCwop6VcoIdent.h>
#include <HwDatablockIdent.h>
#include <HwDatablockMbrdMac.h>
#include <HwDatablockMbrdModel.h>
#include <HwDatablockMbrdSerialNumber.h>
#include <HwDatablockMbrdTimeMonitoringData.h>
#include <HwDatablockMiscIdent.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// The filled ident image, checksum sealed here.
QByteArray filledIdentImage() {
    return sealed(bytesOf({0x02, 0x00, 0x2c, 0x00, 0x00, 0x00, 0x00, 0x00, // header
                           0x00, 0x20, 0x00, 0x00,                         // EEPROM size 8192
                           0x4e, 0x61, 0xbc, 0x00,                         // part number 12345678
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

TEST(HwDatablockMbrdModel, ModelIsWrittenUpTo31AndReadUpTo32Bytes) {
    ServiceRecorders services;
    HwDatablockMbrdModel block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12001, 40));

    block.setModel(QStringLiteral("SGX-4000 Generator"));
    EXPECT_EQ(block.getByteArrayData().mid(8, 19), QByteArray("SGX-4000 Generator\0", 19));
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));
    EXPECT_EQ(block.getModel(), QStringLiteral("SGX-4000 Generator"));
    EXPECT_EQ(printed(block), golden("ident/model.txt"));

    // The last byte of the field is never written but is read.
    QByteArray image = block.getByteArrayData();
    image[39] = 'Z';
    load(block, image);
    block.setModel(QString(40, QLatin1Char('m')));
    EXPECT_EQ(block.getByteArrayData().mid(8), QByteArray(31, 'm') + "Z");
    EXPECT_EQ(block.getModel(), QString(31, QLatin1Char('m')) + "Z");
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));
}

TEST(HwDatablockMbrdSerialNumber, TextForm) {
    ServiceRecorders services;
    HwDatablockMbrdSerialNumber block;
    EXPECT_EQ(hex(block.getByteArrayData()), "e0 2e 0c 00 00 00 00 00 00 00 00 00");
    block.setSerialNumber(102030);
    EXPECT_EQ(printed(block), golden("ident/serial.txt"));
}

TEST(HwDatablockMbrdMac, SetMacFillsWithFfAndLeavesTheChecksum) {
    HwDatablockMbrdMac block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12004, 256).left(12) + QByteArray(244, '\xff'));
    EXPECT_EQ(block.getMacLength(), 0u);

    const unsigned char mac[6] = {0x00, 0x90, 0xb8, 0x01, 0x02, 0x03};
    block.setMac(mac, 6);
    EXPECT_EQ(hex(block.getByteArrayData().mid(4, 24)),
              "00 00 00 00 06 00 00 00 00 90 b8 01 02 03 ff ff ff ff ff ff ff ff ff ff");
    unsigned int length = 0;
    const unsigned char* stored = block.getMac(&length);
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(length, 6u);
    EXPECT_EQ(std::memcmp(stored, mac, 6), 0);
    EXPECT_EQ(block.getMac(nullptr), stored);

    // More than the field holds: the length is stored, only 16 bytes are copied.
    unsigned char many[20];
    for (int i = 0; i < 20; ++i)
        many[i] = static_cast<unsigned char>(i);
    block.setMac(many, 20);
    EXPECT_EQ(block.getMacLength(), 20u);
    EXPECT_EQ(block.getByteArrayData().mid(12, 16), QByteArray(reinterpret_cast<char*>(many), 16));
    EXPECT_EQ(block.getByteArrayData().mid(28), QByteArray(228, '\xff'));
    EXPECT_EQ(printed(block), "");
}

TEST(HwDatablockMbrdTimeMonitoringData, DateAndDataSetters) {
    HwDatablockMbrdTimeMonitoringData block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12008, 172).left(44) + QByteArray(128, '\xff'));

    block.setDate("2024-05-17 10:00");
    EXPECT_EQ(block.getByteArrayData().mid(8, 32),
              QByteArray("2024-05-17 10:00") + QByteArray(16, 0));
    EXPECT_EQ(block.getDate(), QStringLiteral("2024-05-17 10:00"));
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));
    block.setDate("short");
    EXPECT_EQ(block.getByteArrayData().mid(8, 32), QByteArray("short") + QByteArray(27, 0));
    const QByteArray thirtyTwo(32, 'x');
    block.setDate(thirtyTwo.constData()); // too long: nothing changes
    EXPECT_EQ(block.getDate(), QStringLiteral("short"));
    block.setDate(QByteArray(31, 'y').constData());
    EXPECT_EQ(block.getByteArrayData().mid(8, 32), QByteArray(31, 'y') + QByteArray(1, 0));

    const unsigned char data[3] = {0x10, 0x20, 0x30};
    block.setTimeMonitoringData(data, 3);
    unsigned int length = 0;
    const unsigned char* stored = block.getTimeMonitoringData(&length);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(block.getTimeMonitoringDataLength(), 3u);
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(block.getByteArrayData().mid(44),
              bytesOf({0x10, 0x20, 0x30}) + QByteArray(125, '\xff'));
    EXPECT_EQ(printed(block), "");

    // An import whose date field lacks its NUL keeps the date as it was.
    ServiceRecorders services;
    QByteArray image = block.getByteArrayData();
    image.replace(8, 32, QByteArray(32, 'q'));
    const auto record = sealed(recordOf<HwSDatablockMbrdTimeMonitoringDataEx>(image));
    EXPECT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.getDate(), QString(31, QLatin1Char('y')));
}

TEST(HwDatablockCwop6VcoIdent, SettersLayoutAndTextForm) {
    ServiceRecorders services;
    HwDatablockCwop6VcoIdent block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(10502, 28));
    block.setJobNumber(70000);
    block.setSerialNumber(1);
    block.setLotNumber(2);
    block.setTaz(3);
    block.setOsc3Subh(4);
    block.setOsc3Subl(5);
    block.setOsc2Subh(6);
    block.setOsc2Subl(7);
    block.setOsc1Subh(0xffff);
    QByteArray expected =
        bytesOf({0x06, 0x29, 0x1c, 0, 0, 0, 0, 0, 0x70, 0x11, 0x01, 0x00, 1,    0,
                 2,    0,    3,    0, 4, 0, 5, 0, 6,    0,    7,    0,    0xff, 0xff});
    sealChecksum(expected);
    EXPECT_EQ(hex(block.getByteArrayData()), hex(expected));
    EXPECT_EQ(printed(block), golden("ident/vco.txt")); // through the getters
}
