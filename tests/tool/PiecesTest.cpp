// The tool's building blocks: image reassembly, section lookup, byte counts and hex forms.
#include "TestImages.h"

#include <CalibrationFile.h>
#include <ChainDiff.h>
#include <ChainWalker.h>
#include <HexForm.h>
#include <ImageAssembler.h>

#include <gtest/gtest.h>

using namespace Tupsim::test;
using namespace epromtool;

TEST(ImageAssembler, ReplacesBlocksAndKeepsTheImageLength) {
    const QByteArray original = goodImage(); // chain of 52 bytes, 12 free
    const Chain chain = ChainWalker::walk(original);
    QByteArray result;
    QString error;

    ASSERT_TRUE(ImageAssembler::assemble(original, chain, {}, result, error));
    EXPECT_EQ(result, original);

    QByteArray sameSize = calibBlock();
    sameSize[8] = 0x55;
    ASSERT_TRUE(ImageAssembler::assemble(original, chain, {{1, sameSize}}, result, error));
    EXPECT_EQ(hex(result), hex(identBlock() + sameSize + selfDescribingBlock() + endBlock() +
                               QByteArray(12, '\xFF')));

    // Growing by 10 bytes eats into the free space; all 12 bytes fit, 13 do not.
    const QByteArray longer = calibBlock() + QByteArray(10, '\x01');
    ASSERT_TRUE(ImageAssembler::assemble(original, chain, {{1, longer}}, result, error));
    EXPECT_EQ(result.size(), original.size());
    EXPECT_EQ(result.mid(16, 22), longer);
    EXPECT_EQ(result.mid(58, 4), endBlock());
    EXPECT_EQ(result.mid(62), QByteArray(2, '\xFF'));
    const QByteArray tooLong = calibBlock() + QByteArray(13, '\x01');
    EXPECT_FALSE(ImageAssembler::assemble(original, chain, {{1, tooLong}}, result, error));
    EXPECT_EQ(error, "the new chain needs 65 bytes, the image holds 64");

    // Shrinking leaves erased bytes at the end.
    const QByteArray shorter = calibBlock().left(8);
    ASSERT_TRUE(ImageAssembler::assemble(original, chain, {{1, shorter}}, result, error));
    EXPECT_EQ(result.size(), original.size());
    EXPECT_EQ(result.mid(44, 4), endBlock());
    EXPECT_EQ(result.mid(48), QByteArray(16, '\xFF'));
}

TEST(CalibrationFile, KnowsTheNameAfterEachIdKeyword) {
    const CalibrationFile file("# comment ID: in a comment counts too\n"
                               "ID:  RFBO_ALC_DATA\nCOUNT:  1*1\n1:  2.000\n\n"
                               "ID:\tSATT3_CALIB_DATA_ATT\r\n"
                               "ID:NOT_A_KEY\n"
                               "id:  LOWER\n"
                               "ID:");
    EXPECT_TRUE(file.hasSection("RFBO_ALC_DATA"));
    EXPECT_TRUE(file.hasSection("SATT3_CALIB_DATA_ATT"));
    EXPECT_TRUE(file.hasSection("in"));
    EXPECT_FALSE(file.hasSection("RFBO_ALC"));
    EXPECT_FALSE(file.hasSection("NOT_A_KEY"));
    EXPECT_FALSE(file.hasSection("LOWER"));
    EXPECT_FALSE(file.hasSection(""));
    EXPECT_FALSE(CalibrationFile("").hasSection("ID:"));
}

TEST(ChainDiff, CountsPayloadBytesBehindTheHeaderOnly) {
    const QByteArray a = calibBlock();
    QByteArray b = a;
    b[4] = 0x00; // header bytes never count
    b[0] = 0x00;
    EXPECT_EQ(ChainDiff::payloadBytesChanged(a, b), 0);
    b[8] = 0x7F;
    EXPECT_EQ(ChainDiff::payloadBytesChanged(a, b), 1);
    EXPECT_EQ(ChainDiff::payloadBytesChanged(a, b + "xyz"), 4);
    EXPECT_EQ(ChainDiff::payloadBytesChanged(a.left(8), a), 4);
    EXPECT_EQ(ChainDiff::payloadBytesChanged(a.left(5), a.left(3)), 0);
}

TEST(HexForm, CommentLinesAndDumpSplitAtSixteenBytes) {
    QByteArray bytes;
    for (int i = 0; i < 18; ++i)
        bytes.append(static_cast<char>(0xF0 + i));
    EXPECT_EQ(HexForm::commentLines(bytes),
              QStringList({"# f0 f1 f2 f3 f4 f5 f6 f7 f8 f9 fa fb fc fd fe ff", "# 00 01"}));
    EXPECT_EQ(
        HexForm::dump(bytes),
        QStringList({"0000  f0 f1 f2 f3 f4 f5 f6 f7  f8 f9 fa fb fc fd fe ff", "0010  00 01"}));
    EXPECT_TRUE(HexForm::dump(QByteArray()).isEmpty());
    EXPECT_EQ(HexForm::dump(bytes.left(9)), QStringList({"0000  f0 f1 f2 f3 f4 f5 f6 f7  f8"}));
}
