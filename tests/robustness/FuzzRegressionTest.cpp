// Hostile images and calibration texts found by fuzzing and by hand: refused or reported, and
// bounded in the work and text they cause.
#include "support/TestImages.h"

#include <EepromImage.h>
#include <HwCalibTableBlocks.h>
#include <ImageExport.h>
#include <ImageImport.h>

#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

// Whatever the reader makes of a mangled count, the import writes nothing the checks refuse.
TEST(ImportRefusal, MangledCountsNeverReachTheImage) {
    const EepromImage image = EepromImage::fromBytes(example("sample.eeprom"));
    for (const char* line : {"COUNT:  1*-1", "COUNT:  1.9999*-1", "COUNT:  0x10 * -1",
                             "COUNT:  -1*10", "COUNT:  4294967295*1", "COUNT:  5*10"}) {
        const QByteArray text =
            editLine(example("sample.cal"), "ID:  RFBO_ALC_DATA", "COUNT:", line);
        ASSERT_FALSE(text.isEmpty());
        const ImportPlan plan = planImport(image, text);
        EepromImage result = image;
        EXPECT_TRUE(applyPlan(result, plan).ok() ? result.ok() : !plan.ok())
            << line << ": " << result.problems().value(0).text.toStdString();
    }
}

// A 128-byte image of one misc-data block (1 x 1 cells) whose counts say 0xFFFFFFFF.
TEST(BoundedWork, TinyImageWithHugeCountsExportsAFewLines) {
    QByteArray bytes(128, '\xFF');
    const QByteArray block = sealed(bytesOf({0xB2, 0x3A, 20, 0, 0, 0, 0, 0}) + // id 15026
                                    QByteArray(12, '\xFF'));                   // counts, cell
    bytes.replace(0, block.size(), block + endBlock());

    const EepromImage image = EepromImage::fromBytes(bytes);
    ASSERT_EQ(image.problems().value(0).text,
              "block 15026: counts 4294967295*4294967295 exceed the capacity 1*1");
    const std::string text = exportImage(image);
    EXPECT_LT(text.size(), 4096u);
    EXPECT_EQ(text.rfind("# HwDatablockTemplate 15026, 20 bytes: counts 4294967295*4294967295 "
                         "exceed the capacity 1*1\n",
                         0),
              0u);
    EXPECT_LT(printed(*image.makeBlock(0)).size(), 4096u);
}

// Printing stops at the cells the image holds, whatever the counts say.
TEST(BoundedWork, TablePrintoutsStopAtTheCapacity) {
    // Found by the block fuzzer: RFBO_ALC_FREQ (10 x 1) claiming 1030946816 x 1847132336 cells.
    HwDatablockOroRfboAlcFreq freq;
    load(freq, bytesOf({0x72, 0x3D, 0x38, 0x00, 0x2A, 0x66, 0x00, 0x00, //
                        0x00, 0x00, 0x73, 0x3D, 0xB0, 0x00, 0x19, 0x6E}) +
                   QByteArray(40, '\x07'));
    EXPECT_EQ(freq.getRowCount(), 1030946816u);
    EXPECT_LT(printed(freq).size(), 10u * 40u);

    // The line form with row indexes and the headed line form alike.
    QByteArray attImage = bytesOf({0x69, 0x3D, 0, 0, 0, 0, 0, 0}) + QByteArray(8, '\xFF');
    HwDatablockOroRfboAttCalData att;
    load(att, attImage);
    EXPECT_LT(printed(att).size(), 27u * 200u * 16u);
    putAt<quint16>(attImage, 0, 15799);
    HwDatablockKivRfboAttRegData headed;
    load(headed, attImage);
    EXPECT_LT(printed(headed).size(), 50u * 4u * 40u);
}

// A record section that lost its lines: the complaints about it are summarised (those of a table
// section are pinned with the line forms).
TEST(BoundedWork, ComplaintsAboutOneSectionAreSummarised) {
    const ImportPlan plan =
        planImport(EepromImage::fromBytes(example("sample.eeprom")), "ID:              IDENT_2\n");
    ASSERT_TRUE(plan.ok() && plan.blocks.size() == 1) << plan.outcome.message.toStdString();
    ASSERT_EQ(plan.blocks[0].complaints.size(), 6);
    EXPECT_EQ(plan.blocks[0].complaints[0], "no ALIGNMENT: line, ALIGNMENT kept");
    EXPECT_EQ(plan.blocks[0].complaints[5], "... and 5 more lines like this");
}

// A self-describing block whose header claims thousands of columns beside a column of
// thousands of rows: its page shows the cells in proportion to what the image holds.
TEST(BoundedWork, SelfDescribingPageOfAClaimedHugeTable) {
    // The fuzz input: a 16-bit length, the image, then calibration text.
    const QByteArray input =
        QByteArray::fromStdString(golden("robustness/selfdescribing-page-quadratic.fuzz"));
    ASSERT_GT(input.size(), 2);
    const EepromImage image = EepromImage::fromBytes(input.mid(2, word(input, 0)));
    const std::string text = exportImage(image);
    EXPECT_LT(text.size(), 64u * static_cast<std::size_t>(image.size()));
    EXPECT_NE(text.find("USER_"), std::string::npos);
}
