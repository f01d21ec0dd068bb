// epromtool sample: the demonstration image, its examples, goldens and what its blocks hold.
#include "ChainBlocks.h"
#include "ToolHarness.h"

#include <BlockImage.h>
#include <ChainWalker.h>
#include <HwCalibTableBlocks.h>
#include <HwDatablockIdent.h>
#include <QFile>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

QByteArray example(const char* name) {
    QFile file(QStringLiteral(EPROM_SOURCE_DIR "/examples/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The block with this id, loaded into an object of its class.
template <class Block> void loadBlock(Block& block, const QByteArray& image, quint16 id) {
    const QByteArray bytes = blockWithId(image, id);
    ASSERT_FALSE(bytes.isEmpty()) << "no block " << id;
    epromtool::loadImage(block, bytes);
}

} // namespace

TEST(SampleImage, ExamplesAreReproducedExactlyByTheBuiltTool) {
    ToolHarness tool;
    ASSERT_EQ(tool.run({"sample", "-o", "a.eeprom"}).exitCode, 0);
    ASSERT_EQ(tool.run({"sample", "-o", "b.eeprom"}).exitCode, 0);
    EXPECT_EQ(tool.read("a.eeprom"), tool.read("b.eeprom"));
    // On a mismatch, `make examples` regenerates both files.
    EXPECT_TRUE(tool.read("a.eeprom") == example("sample.eeprom"));
    const ToolResult exported =
        tool.run({"export", QStringLiteral(EPROM_SOURCE_DIR "/examples/sample.eeprom")});
    EXPECT_EQ(exported.exitCode, 0);
    EXPECT_EQ(exported.out, QString::fromUtf8(example("sample.cal")));

    const ToolResult missing = tool.run({"sample"});
    EXPECT_EQ(missing.exitCode, 64);
    EXPECT_EQ(missing.err, "epromtool: sample: missing -o FILE (see 'epromtool sample --help')\n");
}

TEST(SampleImage, ListAndVerifyMatchTheirGoldens) {
    ToolHarness tool;
    ASSERT_EQ(tool.run({"sample", "-o", "sample.eeprom"}).exitCode, 0);
    const ToolResult list = tool.run({"list", "sample.eeprom"});
    EXPECT_EQ(list.exitCode, 0);
    EXPECT_EQ(list.out, ToolHarness::golden("sample_list.txt", list.out));
    const ToolResult verify = tool.run({"verify", "sample.eeprom"});
    EXPECT_EQ(verify.exitCode, 0);
    EXPECT_EQ(verify.out, ToolHarness::golden("sample_verify.txt", verify.out));
    EXPECT_EQ(list.err + verify.err, "");
}

TEST(SampleImage, BlocksHoldTheValuesTheSettersStored) {
    ToolHarness tool;
    ASSERT_EQ(tool.run({"sample", "-o", "sample.eeprom"}).exitCode, 0);
    const QByteArray image = tool.read("sample.eeprom");
    ASSERT_EQ(image.size(), 32768);

    HwDatablockIdent ident;
    loadBlock(ident, image, 2);
    EXPECT_EQ(ident.getEepromSize(), 32768u);
    EXPECT_EQ(ident.getPartNumber(), 12345678u);
    EXPECT_EQ(ident.getVariant(), 2);
    EXPECT_EQ(ident.getName(), "RF-BOARD 6G");

    // Rows and columns land where they belong: frequencies scaled by 100, DAC rows as stored.
    HwDatablockOroRfboAlcFreq alcFreq;
    loadBlock(alcFreq, image, 15730);
    EXPECT_EQ(alcFreq.getRowCount(), 10u);
    EXPECT_DOUBLE_EQ(alcFreq.getCalValue(0, 0), 10e6);
    EXPECT_DOUBLE_EQ(alcFreq.getCalValue(9, 0), 6e9);
    HwDatablockOroRfboAlcData alcData;
    loadBlock(alcData, image, 15731);
    EXPECT_EQ(alcData.getColCount(), 10u);
    EXPECT_EQ(alcData.getCalValue(0, 1), 1820);
    EXPECT_EQ(alcData.getCalValue(3, 9), 2562);

    HwDatablockTeshRfboAttCalVecData att;
    loadBlock(att, image, 15843);
    EXPECT_EQ(att.getIndex(3), 30);
    EXPECT_EQ(att.getCalValue(3, 4), 2972);
    HwDatablockOroRfboRfLevelMaxData level;
    loadBlock(level, image, 15716);
    EXPECT_NEAR(level.getCalValue(1, 7), 15.20, 1e-9);
    HwDatablockTeshRfboExtCalVecUserData user;
    loadBlock(user, image, 16003);
    std::string descriptor;
    user.getDescriptor(9, descriptor);
    EXPECT_EQ(descriptor, "-               ");
    EXPECT_EQ(user.getCalValue(1, 5), -52);

    // Behind the end block the memory reads as erased.
    const int used = epromtool::ChainWalker::walk(image).used;
    EXPECT_EQ(image.mid(used), QByteArray(32768 - used, '\xFF'));
}
