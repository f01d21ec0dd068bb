// export -> edit -> import through the built binary, on the sample image: what changes, what
// must not, rounded values that keep their stored bytes, and damaged blocks left alone.
#include "CalibrationText.h"
#include "ChainBlocks.h"
#include "TestImages.h"
#include "ToolHarness.h"

#include <BlockImage.h>
#include <HwCalibTableBlocks.h>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// A scratch directory holding the sample image and its export.
struct Exported {
    ToolHarness tool;
    QByteArray image;
    QString text;
    Exported() {
        tool.run({"sample", "-o", "image.bin"});
        image = tool.read("image.bin");
        tool.run({"export", "image.bin", "-o", "cal.txt"});
        text = QString::fromUtf8(tool.read("cal.txt"));
    }
};

QList<int> differingOffsets(const QByteArray& a, const QByteArray& b) {
    QList<int> offsets;
    for (int i = 0; i < qMin(a.size(), b.size()); ++i)
        if (a[i] != b[i])
            offsets << i;
    return offsets;
}

} // namespace

TEST(ToolRoundTrip, ImportOfTheUneditedExportChangesNoByte) {
    Exported sample;
    ASSERT_FALSE(sample.text.isEmpty());
    const ToolResult import = sample.tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(import.exitCode, 0);
    EXPECT_EQ(sample.tool.read("new.bin"), sample.image);
    EXPECT_TRUE(import.outLines().contains("block 15731 at 0x00a4 RFBO_ALC_DATA: unchanged"));
    EXPECT_TRUE(import.outLines().contains("wrote new.bin"));
}

TEST(ToolRoundTrip, OneEditedValueChangesOnlyThatCellAndTheChecksum) {
    Exported sample;
    const QString id = QStringLiteral("ID:  RFBO_ALC_DATA");
    const QString row = lineOf(sample.text, id, "2: ");
    ASSERT_TRUE(row.contains("\t2047.000\t")) << row.toStdString();
    sample.tool.write("cal.txt",
                      replaceLine(sample.text, id, "2: ", withValue(row, 3, "2050")).toUtf8());

    const ToolResult import = sample.tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(import.exitCode, 0);
    const QByteArray edited = sample.tool.read("new.bin");
    ASSERT_EQ(edited.size(), sample.image.size());
    int block = 0;
    blockWithId(sample.image, 15731, &block);
    const int cell = block + 16 + (1 * 10 + 3) * 4; // row 1, column 3 of four int rows of ten
    const QList<int> changed = differingOffsets(sample.image, edited);
    ASSERT_FALSE(changed.isEmpty());
    EXPECT_TRUE(changed.contains(cell));
    for (int at : changed)
        EXPECT_TRUE((at >= block + 4 && at < block + 6) || (at >= cell && at < cell + 4)) << at;

    HwDatablockOroRfboAlcData alc;
    epromtool::loadImage(alc, blockWithId(edited, 15731));
    EXPECT_EQ(alc.getCalValue(1, 3), 2050);
    EXPECT_TRUE(alc.verifyChecksum());
    const QString outcome = import.outLines().filter("RFBO_ALC_DATA").value(0);
    EXPECT_TRUE(outcome.startsWith("block 15731 at 0x00a4 RFBO_ALC_DATA: 1 cell changed, checksum "
                                   "0x"))
        << outcome.toStdString();
    sample.tool.write("new.bin", edited);
    EXPECT_EQ(sample.tool.run({"verify", "new.bin"}).exitCode, 0);
}

TEST(ToolRoundTrip, CountIndexAndDescriptorEditsAreReportedInTheTablesTerms) {
    Exported sample;
    QString text = sample.text;
    // One frequency point fewer; a row index renamed and one column more than the rows hold;
    // a descriptor renamed.
    text = replaceLine(text, "ID:  RFBO_ALC_FREQ", "COUNT:", "COUNT:  9*1");
    const QString att = QStringLiteral("ID:  RFBO_ATT_CAL_VEC_DATA");
    text = replaceLine(text, att, "COUNT:", "COUNT:  4*6");
    text = replaceLine(text, att, "20: ", lineOf(text, att, "20: ").replace("20: ", "25: "));
    text = replaceLine(text, "ID:  RFBO_EXT_CAL_VEC_USER_DATA",
                       "DESCRIPTOR7:", "DESCRIPTOR7: PATH_RF_C");
    ASSERT_FALSE(text.isEmpty());
    sample.tool.write("cal.txt", text.toUtf8());

    const ToolResult import = sample.tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(import.exitCode, 0);
    const QStringList lines = import.outLines();
    const auto lineStarting = [&lines](const QString& head) {
        const int at = lines.indexOf(QRegExp(QRegExp::escape(head) + ".*"));
        return at < 0 ? QString() : lines[at];
    };
    EXPECT_TRUE(lineStarting("block 15730 at 0x006c RFBO_ALC_FREQ: 1 cell changed, counts 10*1 "
                             "-> 9*1, checksum ")
                    .size() > 0);
    const QString attLine = "block 15843 at 0x01b4 RFBO_ATT_CAL_VEC_DATA: 0 cells changed, "
                            "counts 4*5 -> 4*6, 1 index changed, checksum ";
    const int atAtt = lines.indexOf(QRegExp(QRegExp::escape(attLine) + ".*"));
    ASSERT_GE(atAtt, 0);
    // Every row now holds a value fewer than the count line says; the reader says so.
    for (int row = 1; row <= 4; ++row)
        EXPECT_EQ(lines.value(atAtt + row),
                  QStringLiteral("  reader: ERROR: In Row =%1 correspondent the number of "
                                 "columns not with the given value")
                      .arg(row));
    EXPECT_TRUE(lineStarting("block 16003 at 0x1648 RFBO_EXT_CAL_VEC_USER_DATA: 0 cells changed, "
                             "1 descriptor changed, checksum ")
                    .size() > 0);
    EXPECT_TRUE(lines.contains("8 of 13 blocks have a section in cal.txt, 3 replaced"));

    HwDatablockTeshRfboAttCalVecData table;
    epromtool::loadImage(table, blockWithId(sample.tool.read("new.bin"), 15843));
    EXPECT_EQ(table.getIndex(2), 25);
    EXPECT_EQ(table.getColCount(), 6u);
}

TEST(ToolRoundTrip, DamagedBlocksPassThroughAndRoundedValuesKeepTheirStoredBytes) {
    ToolHarness tool;
    HwDatablockOroRfboAlcData alc;
    alc.setRowCount(2);
    alc.setColCount(3);
    alc.setCalValue(-77, 1, 2);
    QByteArray badChecksum = alc.getByteArrayData();
    badChecksum[4] = static_cast<char>(badChecksum[4] ^ 0x01);
    QByteArray tooManyRows = alc.getByteArrayData();
    tooManyRows[8] = 5; // five rows in a table of four
    sealChecksum(tooManyRows);
    HwDatablockOroRfboAlcFreq freq;
    QByteArray longer = freq.getByteArrayData() + bytesOf({0, 0, 0, 0});
    longer[2] = 60; // the size word follows
    sealChecksum(longer);
    // 19.40 dB stored as 1940 hundredths reads back from "19.400" as 1939.
    HwDatablockOroRfboRfLevelMaxData level;
    level.setRowCount(1);
    level.setColCount(2);
    level.setCalValue(1940, 0, 0);
    level.setCalValue(1850, 0, 1);
    const QByteArray image = badChecksum + longer + tooManyRows + level.getByteArrayData() +
                             endBlock() + QByteArray(16, '\xFF');
    tool.write("image.bin", image);
    ASSERT_EQ(tool.run({"export", "image.bin", "-o", "cal.txt"}).exitCode, 1); // bad checksum
    const QString text = QString::fromUtf8(tool.read("cal.txt"));
    // Counts beyond the capacity would print millions of values: the block shows as bytes, so
    // it has no section to be read from.
    EXPECT_TRUE(text.contains("\n# HwDatablockOroRfboAlcData 15731, 176 bytes: counts 5*3 exceed "
                              "the capacity 4*10\n# 73 3d b0 00 "));
    const QString id = QStringLiteral("ID:  RFBO_RFLEVEL_MAX_DATA");
    // 19.40 reads back as 1939, but only the edited cell (18.50 -> 18.00) may change.
    tool.write(
        "cal.txt",
        replaceLine(text, id, "1: ", withValue(lineOf(text, id, "1: "), 1, "18.000")).toUtf8());

    const ToolResult import = tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(import.exitCode, 1);
    EXPECT_EQ(import.outLines().mid(0, 4),
              QStringList({"block 15731 at 0x0000 RFBO_ALC_DATA: not importable, its checksum "
                           "is bad; left as it was",
                           "block 15730 at 0x00b0 RFBO_ALC_FREQ: not importable, its size is 60 "
                           "bytes, the table's image has 56; left as it was",
                           "block 15716 at 0x019c RFBO_RFLEVEL_MAX_DATA: 1 cell changed, "
                           "checksum 0xafbb -> 0xafed",
                           "3 of 4 blocks have a section in cal.txt, 1 replaced"}));
    level.setCalValue(1800, 0, 1);
    EXPECT_DOUBLE_EQ(level.getCalValue(0, 0), 19.4);
    EXPECT_EQ(tool.read("new.bin"), badChecksum + longer + tooManyRows + level.getByteArrayData() +
                                        endBlock() + QByteArray(16, '\xFF'));
}

TEST(ToolRoundTrip, AMalformedSectionStopsTheImportBeforeAnythingIsWritten) {
    Exported sample;
    sample.tool.write(
        "cal.txt",
        replaceLine(sample.text, "ID:  RFBO_ALC_DATA", "COUNT:", "COUNT:  5*10").toUtf8());
    const ToolResult import = sample.tool.run({"import", "image.bin", "cal.txt"});
    EXPECT_EQ(import.exitCode, 2);
    EXPECT_EQ(import.err, " count of Block RFBO_ALC_DATA is too high\n"
                          "epromtool: cal.txt: the calibration reader stopped: it ended the "
                          "process with status 2; nothing written\n");
    EXPECT_EQ(sample.tool.read("image.bin"), sample.image);
    EXPECT_FALSE(sample.tool.exists("image.bin.bak"));
}
