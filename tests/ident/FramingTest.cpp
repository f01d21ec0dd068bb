// End block and module-type table.
#include "support/Blocks.h"

#include <HwDatablockEnd.h>
#include <HwModuleTypeTable.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

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

    const HwSDatablockEnd record{0xfffe, 3};
    EXPECT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(hex(block.getByteArrayData()), "fe ff 03 00");
    EXPECT_EQ(block.setBlock(nullptr), 1);
    EXPECT_EQ(hex(block.getByteArrayData()), "fe ff 03 00");
    EXPECT_EQ(printed(block), golden("ident/end.txt"));
}

namespace {

QByteArray row(int code, const char* name, const char* label, const char* stem) {
    return bytesOf({code, code >> 8, code >> 16, code >> 24}) +
           QByteArray(name).leftJustified(32, '\0') + QByteArray(label).leftJustified(14, '\0') +
           QByteArray(stem).leftJustified(34, '\0');
}

} // namespace

TEST(HwModuleTypeTable, HostRowsGoBeforeTheTerminatorFirstCodeWins) {
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
}

TEST(HwModuleTypeTable, LoadedRowsStopAtTheirTerminator) {
    QByteArray image = recordBytes(HwModuleTypeTable::makeRow(0x01020304, "ALPHA"));
    image.append(recordBytes(HwModuleTypeTable::makeRow(7, "BETA")));
    image.append(recordBytes(HwModuleTypeTable::terminator()));
    image.append(recordBytes(HwModuleTypeTable::makeRow(8, "AFTER-THE-END")));
    HwModuleTypeTable table;
    EXPECT_EQ(table.loadRows(image), 2);
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_NE(table.findByCode(0x01020304), nullptr);
    EXPECT_STREQ(table.findByCode(7)->stem, "beta");
    EXPECT_EQ(table.findByCode(8), nullptr);

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
