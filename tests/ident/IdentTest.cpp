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
    EXPECT_EQ(printed(block), golden("ident/ident_filled.txt"));

    block.setName(QStringLiteral("0123456789ABCDEFGH"));
    EXPECT_EQ(block.getByteArrayData().mid(30), QByteArray("0123456789ABCD"));
    EXPECT_EQ(block.getName(), QStringLiteral("0123456789ABCD"));
    block.setName(QStringLiteral("XY")); // clears what the longer name left behind
    EXPECT_EQ(hex(block.getByteArrayData().mid(30)), "58 59 00 00 00 00 00 00 00 00 00 00 00 00");

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
    EXPECT_EQ(printed(other), golden("ident/miscident_other.txt"));
}

TEST(Mainboard, ModelIsWrittenUpTo31AndReadUpTo32BytesSerialNumberInText) {
    ServiceRecorders services;
    HwDatablockMbrdModel block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12001, 40));
    // The last byte of the field is never written but is read.
    QByteArray image = block.getByteArrayData();
    image[39] = 'Z';
    load(block, image);
    block.setModel(QString(40, QLatin1Char('m')));
    EXPECT_EQ(block.getByteArrayData().mid(8), QByteArray(31, 'm') + "Z");
    EXPECT_EQ(block.getModel(), QString(31, QLatin1Char('m')) + "Z");
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));

    HwDatablockMbrdSerialNumber serial;
    EXPECT_EQ(hex(serial.getByteArrayData()), "e0 2e 0c 00 00 00 00 00 00 00 00 00");
    serial.setSerialNumber(102030);
    EXPECT_EQ(printed(serial), golden("ident/serial.txt"));
}

TEST(HwDatablockMbrdMac, SetMacFillsWithFfAndLeavesTheChecksum) {
    HwDatablockMbrdMac block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12004, 256).left(12) + QByteArray(244, '\xff'));
    const unsigned char mac[6] = {0x00, 0x90, 0xb8, 0x01, 0x02, 0x03};
    block.setMac(mac, 6);
    EXPECT_EQ(hex(block.getByteArrayData().mid(4, 24)),
              "00 00 00 00 06 00 00 00 00 90 b8 01 02 03 ff ff ff ff ff ff ff ff ff ff");
    unsigned int length = 0;
    const unsigned char* stored = block.getMac(&length);
    EXPECT_EQ(length, 6u);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(stored), 6),
              block.getByteArrayData().mid(12, 6));
    EXPECT_EQ(block.getMac(nullptr), stored);

    // More than the field holds: the length is stored, only 16 bytes are copied.
    const QByteArray many = QByteArray("0123456789abcdefghij");
    block.setMac(reinterpret_cast<const unsigned char*>(many.constData()), 20);
    EXPECT_EQ(block.getMacLength(), 20u);
    EXPECT_EQ(block.getByteArrayData().mid(12), many.left(16) + QByteArray(228, '\xff'));
    EXPECT_EQ(printed(block), "");
}

TEST(HwDatablockMbrdTimeMonitoringData, DateAndDataSetters) {
    HwDatablockMbrdTimeMonitoringData block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12008, 172).left(44) + QByteArray(128, '\xff'));
    block.setDate(QByteArray(31, 'y').constData());
    EXPECT_EQ(block.getByteArrayData().mid(8, 32), QByteArray(31, 'y') + QByteArray(1, 0));
    block.setDate("short");
    EXPECT_EQ(block.getByteArrayData().mid(8, 32), QByteArray("short") + QByteArray(27, 0));
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));
    block.setDate(QByteArray(32, 'x').constData()); // too long: nothing changes
    EXPECT_EQ(block.getDate(), QStringLiteral("short"));

    const unsigned char data[3] = {0x10, 0x20, 0x30};
    block.setTimeMonitoringData(data, 3);
    unsigned int length = 0;
    ASSERT_NE(block.getTimeMonitoringData(&length), nullptr);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(block.getTimeMonitoringDataLength(), 3u);
    EXPECT_EQ(block.getByteArrayData().mid(40),
              bytesOf({3, 0, 0, 0, 0x10, 0x20, 0x30}) + QByteArray(125, '\xff'));
    EXPECT_EQ(printed(block), "");

    // An import whose date field lacks its NUL keeps the date as it was.
    ServiceRecorders services;
    QByteArray image = block.getByteArrayData();
    image.replace(8, 32, QByteArray(32, 'q'));
    const auto record = sealed(recordOf<HwSDatablockMbrdTimeMonitoringDataEx>(image));
    EXPECT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.getDate(), QStringLiteral("short"));
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
    EXPECT_EQ(
        hex(block.getByteArrayData()),
        hex(sealed(bytesOf({0x06, 0x29, 0x1c, 0, 0, 0, 0, 0, 0x70, 0x11, 0x01, 0x00, 1,   0, 2,
                            0,    3,    0,    4, 0, 5, 0, 6, 0,    7,    0,    0xff, 0xff}))));
    EXPECT_EQ(printed(block), golden("ident/vco.txt"));
}
