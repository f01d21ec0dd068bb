// Identification blocks: ident and misc ident, the mainboard's model, serial number, MAC and
// time monitoring, the VCO ident block, the module-type table and the end block.
#include "support/TestImages.h"

#include <HwDatablockCwop6VcoIdent.h>
#include <HwDatablockEnd.h>
#include <HwDatablockIdent.h>
#include <HwDatablockMbrdMac.h>
#include <HwDatablockMbrdModel.h>
#include <HwDatablockMbrdSerialNumber.h>
#include <HwDatablockMbrdTimeMonitoringData.h>
#include <HwDatablockMiscIdent.h>
#include <HwModuleTypeTable.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// Header, EEPROM size 8192, part number 12345678, variant 3, hw 17, index 105, serial 987654,
// date 2024-05-17, read code 7, test instruction 1203 and the name.
const QByteArray filled = sealed(
    QByteArray::fromHex("02002c0000000000 00200000 4e61bc00 03116900 06120f00 b1580700b304") +
    QByteArray("SMB-B106").leftJustified(14, '\0'));

// A row of the module-type table in memory: the code as the host holds it.
QByteArray row(quint32 code, const char* name, const char* label, const char* stem) {
    return QByteArray(reinterpret_cast<const char*>(&code), sizeof code) +
           QByteArray(name).leftJustified(32, '\0') + QByteArray(label).leftJustified(14, '\0') +
           QByteArray(stem).leftJustified(34, '\0');
}

// A row as loadRows reads it from stored bytes: the code least significant byte first.
QByteArray storedRow(const HwSModuleType& row) {
    QByteArray bytes = recordBytes(row);
    putAt<quint32>(bytes, 0, row.code);
    return bytes;
}

} // namespace

TEST(HwDatablockIdent, SettersNameCutAtFourteenBytesSwapShortImagesAndMiscIdent) {
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
    EXPECT_EQ(hex(block.getByteArrayData()), hex(filled));
    EXPECT_EQ(printed(block), golden("ident/ident_filled.txt"));

    block.setName(QStringLiteral("0123456789ABCDEFGH"));
    EXPECT_EQ(block.getByteArrayData().mid(30), QByteArray("0123456789ABCD"));
    EXPECT_EQ(block.getName(), QStringLiteral("0123456789ABCD"));
    block.setName(QStringLiteral("XY")); // clears what the longer name left behind
    EXPECT_EQ(hex(block.getByteArrayData().mid(30)), "58 59 00 00 00 00 00 00 00 00 00 00 00 00");

    // The swap takes the record as it is, size word and checksum unchecked.
    HwSDatablockIdent record = recordOf<HwSDatablockIdent>(filled);
    record.blockSize = 40;
    record.checksum = 0xbeef;
    block.swapBlock(&record);
    EXPECT_EQ(hex(block.getByteArrayData()), hex(recordBytes(record)));
    EXPECT_EQ(block.getSerialNumber(), 987654u);

    // Short images read zero and swap in place safely.
    load(block, filled.left(21));
    EXPECT_EQ(block.getProductIndex(), 105);
    EXPECT_EQ(block.getSerialNumber(), 0u);
    EXPECT_EQ(block.getName(), QString());
    EXPECT_EQ(block.getBlock(), nullptr);
    block.setSerialNumber(5);
    block.setName(QStringLiteral("X"));
    block.swapOwnImage();
    // The conversion turns every field that the image holds into the processor's order: nothing
    // changes on a little-endian host, a big-endian one reverses the size, part number and product
    // index; the header and the cut serial number stay as they are.
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    EXPECT_EQ(hex(block.getByteArrayData()),
              "02 00 2c 00 d5 1a 00 00 00 00 20 00 00 bc 61 4e 03 11 00 69 06");
#else
    EXPECT_EQ(block.getByteArrayData(), filled.left(21));
#endif
    load(block, QByteArray());
    block.swapOwnImage();
    EXPECT_TRUE(block.getByteArrayData().isEmpty());
    EXPECT_EQ(printed(block).substr(0, 24), "# Das sind die Kopfdaten");

    HwDatablockMiscIdent aux(VARIANT_STREAM_AUX_IDENT);
    EXPECT_EQ(aux.getByteArrayData(), freshImage(10504, 44));
    EXPECT_EQ(printed(aux).substr(0, 31), "ID:           STREAM_AUX_IDENT\n");
    HwDatablockMiscIdent other(static_cast<HwEVariantEepromDatablock>(10505));
    EXPECT_EQ(printed(other), golden("ident/miscident_other.txt"));
}

TEST(Mainboard, ModelSerialNumberMacAndTimeMonitoringFields) {
    ServiceRecorders services;
    HwDatablockMbrdModel block;
    EXPECT_EQ(block.getByteArrayData(), freshImage(12001, 40));
    // The last byte of the field is never written but is read.
    load(block, freshImage(12001, 40).replace(39, 1, "Z"));
    block.setModel(QString(40, QLatin1Char('m')));
    EXPECT_EQ(block.getByteArrayData().mid(8), QByteArray(31, 'm') + "Z");
    EXPECT_EQ(block.getModel(), QString(31, QLatin1Char('m')) + "Z");
    EXPECT_TRUE(sumsToZero(block.getByteArrayData()));

    HwDatablockMbrdSerialNumber serial;
    EXPECT_EQ(hex(serial.getByteArrayData()), "e0 2e 0c 00 00 00 00 00 00 00 00 00");
    serial.setSerialNumber(102030);
    EXPECT_EQ(printed(serial), golden("ident/serial.txt"));

    HwDatablockMbrdMac macBlock;
    EXPECT_EQ(macBlock.getByteArrayData(),
              freshImage(12004, 256).left(12) + QByteArray(244, '\xff'));
    const unsigned char mac[6] = {0x00, 0x90, 0xb8, 0x01, 0x02, 0x03};
    macBlock.setMac(mac, 6);
    EXPECT_EQ(hex(macBlock.getByteArrayData().mid(4, 24)),
              "00 00 00 00 06 00 00 00 00 90 b8 01 02 03 ff ff ff ff ff ff ff ff ff ff");
    unsigned int length = 0;
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(macBlock.getMac(&length)), 6),
              macBlock.getByteArrayData().mid(12, 6));
    EXPECT_EQ(length, 6u);

    // More than the field holds: the length is stored, only 16 bytes are copied.
    const QByteArray many = QByteArray("0123456789abcdefghij");
    macBlock.setMac(reinterpret_cast<const unsigned char*>(many.constData()), 20);
    EXPECT_EQ(macBlock.getMacLength(), 20u);
    EXPECT_EQ(macBlock.getByteArrayData().mid(12), many.left(16) + QByteArray(228, '\xff'));
    EXPECT_EQ(printed(macBlock), "");

    HwDatablockMbrdTimeMonitoringData time;
    EXPECT_EQ(time.getByteArrayData(), freshImage(12008, 172).left(44) + QByteArray(128, '\xff'));
    time.setDate(QByteArray(31, 'y').constData());
    EXPECT_EQ(time.getByteArrayData().mid(8, 32), QByteArray(31, 'y') + QByteArray(1, 0));
    time.setDate("short");
    EXPECT_EQ(time.getByteArrayData().mid(8, 32), QByteArray("short") + QByteArray(27, 0));
    EXPECT_TRUE(sumsToZero(time.getByteArrayData()));
    time.setDate(QByteArray(32, 'x').constData()); // too long: nothing changes
    EXPECT_EQ(time.getDate(), QStringLiteral("short"));

    const unsigned char data[3] = {0x10, 0x20, 0x30};
    time.setTimeMonitoringData(data, 3);
    ASSERT_NE(time.getTimeMonitoringData(&length), nullptr);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(time.getByteArrayData().mid(40),
              bytesOf({3, 0, 0, 0, 0x10, 0x20, 0x30}) + QByteArray(125, '\xff'));
    EXPECT_EQ(printed(time), "");

    // An import whose date field lacks its NUL keeps the date as it was.
    const auto record = sealed(recordOf<HwSDatablockMbrdTimeMonitoringDataEx>(
        time.getByteArrayData().replace(8, 32, QByteArray(32, 'q'))));
    EXPECT_EQ(time.setBlock(&record), 0);
    EXPECT_EQ(time.getDate(), QStringLiteral("short"));
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

TEST(HwDatablockEnd, ChecksumOperationsAnswerNeutrallyAndWordSettersStore) {
    HwDatablockEnd block;
    EXPECT_EQ(hex(block.getByteArrayData()), "ff ff 00 00");
    EXPECT_EQ(block.getBlockSize(), 4);

    load(block, bytesOf({0xff, 0xff, 0x12, 0x34, 0x56, 0x78}));
    EXPECT_TRUE(block.verifyChecksum());
    unsigned short words[3] = {1, 2, 3};
    EXPECT_TRUE(block.verifyChecksum(words, 6, false));
    EXPECT_EQ(block.computeChecksum(), 0);
    EXPECT_EQ(block.computeChecksum(words, 6), 0);
    EXPECT_EQ(block.getBlockSize(), 6); // the array's length
    block.setChecksum(0xabcd);
    block.setAlignment(9); // through setChecksum, which ignores it
    EXPECT_EQ(hex(block.getByteArrayData()), "ff ff 12 34 56 78");

    load(block, bytesOf({0xff, 0xff}));
    EXPECT_EQ(block.getBlockSize(), 0);
    block.setEndBlockData(7);
    EXPECT_EQ(hex(block.getByteArrayData()), "ff ff");

    load(block, bytesOf({0xff, 0xff, 0, 0}));
    block.setEndBlockID(0x1234);
    block.setEndBlockData(0xbeef);
    EXPECT_EQ(hex(block.getByteArrayData()), "34 12 ef be");
    block.setEndBlock();
    EXPECT_EQ(hex(block.getByteArrayData()), "ff ff 00 00");

    // A record as the EEPROM holds it, least significant byte first on every host.
    const HwSDatablockEnd record = recordOf<HwSDatablockEnd>(bytesOf({0xfe, 0xff, 0x03, 0x00}));
    EXPECT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.setBlock(nullptr), 1);
    EXPECT_EQ(hex(block.getByteArrayData()), "fe ff 03 00");
    EXPECT_EQ(printed(block), golden("ident/end.txt"));
}

TEST(HwModuleTypeTable, HostRowsGoBeforeTheTerminatorLoadedRowsStopAtIt) {
    HwModuleTypeTable table;
    EXPECT_EQ(table.findByCode(0), nullptr);
    EXPECT_TRUE(table.addRow(0, "Board-AZ"));
    EXPECT_TRUE(table.addRow(1, "board-with-a-very-long-name-beyond-every-field"));
    EXPECT_TRUE(table.addRow(1, "board-c"));
    EXPECT_FALSE(table.addRow(HwModuleTypeTable::terminator()));
    ASSERT_EQ(table.rowCount(), 4);
    EXPECT_EQ(table.row(4), nullptr);
    EXPECT_EQ(table.row(-1), nullptr);
    EXPECT_EQ(hex(recordBytes(*table.row(3))), hex(row(190, "LAST", "LAST         ", "last")));
    EXPECT_EQ(table.findByCode(190), table.row(3));
    EXPECT_EQ(hex(recordBytes(*table.row(0))),
              hex(row(0, "BOARD-AZ", "BOARD-AZ     ", "board-az")));
    EXPECT_EQ(table.findByCode(1), table.row(1));
    EXPECT_EQ(hex(recordBytes(*table.row(1))),
              hex(row(1, "BOARD-WITH-A-VERY-LONG-NAME-BEY", "BOARD-WITH-A-",
                      "board-with-a-very-long-name-beyon")));

    while (table.rowCount() < HwModuleTypeTable::MaxRows)
        ASSERT_TRUE(table.addRow(2, "filler"));
    EXPECT_FALSE(table.addRow(3, "one-too-many"));
    EXPECT_EQ(table.rowCount(), 192);
    EXPECT_EQ(table.findByCode(3), nullptr);

    QByteArray image = storedRow(HwModuleTypeTable::makeRow(0x01020304, "ALPHA"));
    image.append(storedRow(HwModuleTypeTable::makeRow(7, "BETA")));
    image.append(storedRow(HwModuleTypeTable::terminator()));
    image.append(storedRow(HwModuleTypeTable::makeRow(8, "AFTER-THE-END")));
    HwModuleTypeTable loaded;
    EXPECT_EQ(loaded.loadRows(image), 2);
    EXPECT_EQ(loaded.rowCount(), 3);
    EXPECT_NE(loaded.findByCode(0x01020304), nullptr);
    EXPECT_STREQ(loaded.findByCode(7)->stem, "beta");
    EXPECT_EQ(loaded.findByCode(8), nullptr);

    // A partial row and unterminated fields are handled without reading past them.
    QByteArray raw(84 + 40, 'X');
    raw[0] = 9;
    raw[1] = raw[2] = raw[3] = 0;
    HwModuleTypeTable other;
    EXPECT_EQ(other.loadRows(raw), 1);
    ASSERT_NE(other.findByCode(9), nullptr);
    EXPECT_EQ(std::string(other.findByCode(9)->name), std::string(31, 'X'));
    EXPECT_EQ(other.loadRows(QByteArray()), 0);
}
