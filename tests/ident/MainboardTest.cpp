// Mainboard model, serial number, MAC and time-monitoring blocks, and the VCO ident block.
#include "support/Blocks.h"

#include <HwDatablockCwop6VcoIdent.h>
#include <HwDatablockMbrdMac.h>
#include <HwDatablockMbrdModel.h>
#include <HwDatablockMbrdSerialNumber.h>
#include <HwDatablockMbrdTimeMonitoringData.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

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
