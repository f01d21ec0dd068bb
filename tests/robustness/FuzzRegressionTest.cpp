// Hostile images and calibration texts found by fuzzing and by hand: refused or reported, and
// bounded in the work and text they cause.
#include "support/Bytes.h"

#include <BlockCatalogue.h>
#include <EepromImage.h>
#include <HwCalibTableBlocks.h>
#include <ImageExport.h>
#include <ImageImport.h>

#include <QFile>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray sampleImage() {
    return readFile(QStringLiteral(EPROM_SOURCE_DIR "/examples/sample.eeprom"));
}

QByteArray sampleText() {
    return readFile(QStringLiteral(EPROM_SOURCE_DIR "/examples/sample.cal"));
}

void putLE32(QByteArray& image, int at, quint32 value) {
    for (int i = 0; i < 4; ++i)
        image[at + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

// The sample's calibration text with RFBO_ALC_DATA's count line replaced.
QByteArray withAlcCountLine(const QByteArray& countLine) {
    QByteArray text = sampleText();
    const int section = text.indexOf("ID:  RFBO_ALC_DATA\n");
    const int count = text.indexOf("COUNT:  4*10\n", section);
    text.replace(count, int(qstrlen("COUNT:  4*10")), countLine);
    return text;
}

std::string printed(HwDatablock& block) {
    std::ostringstream out;
    block.printToStream(out);
    return out.str();
}

} // namespace

TEST(ImportRefusal, NegativeAndMangledCountsNeverReachTheImage) {
    const EepromImage image = EepromImage::fromBytes(sampleImage());
    ASSERT_TRUE(image.ok());

    const ImportPlan negative = planImport(image, withAlcCountLine("COUNT:  1*-1"));
    EXPECT_FALSE(negative.ok);
    EXPECT_TRUE(negative.error.contains("RFBO_ALC_DATA")) << negative.error.toStdString();
    EepromImage untouched = image;
    QString error;
    EXPECT_FALSE(applyImport(untouched, negative, error));
    EXPECT_EQ(untouched.bytes(), image.bytes());

    // Whatever the reader makes of these, the import writes nothing that the checks refuse.
    for (const char* line : {"COUNT:  1*-1", "COUNT:  1.9999*-1", "COUNT:  0x10 * -1",
                             "COUNT:  -1*10", "COUNT:  4294967295*1", "COUNT:  5*10"}) {
        const ImportPlan plan = planImport(image, withAlcCountLine(line));
        EepromImage result = image;
        QString why;
        if (applyImport(result, plan, why)) {
            EXPECT_TRUE(result.ok())
                << line << ": " << result.problems().value(0).text.toStdString();
        } else {
            EXPECT_FALSE(plan.ok) << line;
        }
    }
}

TEST(ImportRefusal, StoredBlockOverCapacityIsReportedNotSkipped) {
    QByteArray bytes = sampleImage();
    const EepromImage sample = EepromImage::fromBytes(bytes);
    const int index = sample.find(15731);
    ASSERT_GE(index, 0);
    QByteArray block = sample.blockBytes(index);
    putLE32(block, 8, 5); // five rows in a table of four
    sealChecksum(block);
    bytes.replace(sample.block(index).offset, block.size(), block);

    const EepromImage image = EepromImage::fromBytes(bytes);
    EXPECT_FALSE(image.ok());
    EXPECT_FALSE(image.block(index).overCapacity.isEmpty());
    EXPECT_TRUE(image.block(index).checksumOk);

    const ImportPlan plan = planImport(image, sampleText());
    bool reported = false;
    for (const ImportedBlock& imported : plan.blocks)
        if (imported.id == 15731) {
            reported = true;
            EXPECT_EQ(imported.outcome, ImportedBlock::NotImportable);
            EXPECT_TRUE(imported.note.contains("capacity")) << imported.note.toStdString();
        }
    EXPECT_TRUE(reported);
}

// A 128-byte image of one misc-data block (1 x 1 cells) whose counts say 0xFFFFFFFF.
TEST(BoundedWork, TinyImageWithHugeCountsExportsAFewLines) {
    QByteArray bytes(128, static_cast<char>(0xFF));
    QByteArray block = bytesOf({0xB2, 0x3A, 20, 0, 0, 0, 0, 0}); // id 15026, 20 bytes
    block.append(QByteArray(12, '\xFF'));                        // counts and the one cell
    sealChecksum(block);
    bytes.replace(0, block.size(), block);
    bytes.replace(block.size(), 4, bytesOf({0xFF, 0xFF, 0x00, 0x00})); // end block

    const EepromImage image = EepromImage::fromBytes(bytes);
    ASSERT_GE(image.blockCount(), 1);
    EXPECT_EQ(image.block(0).id, 15026);
    // The misc-data table's counts are checked against its capacity like any table's.
    ASSERT_FALSE(image.problems().isEmpty());
    EXPECT_EQ(image.problems().first().text,
              "block 15026: counts 4294967295*4294967295 exceed the capacity 1*1");
    EXPECT_FALSE(image.ok());
    const std::string text = exportImage(image);
    EXPECT_LT(text.size(), 4096u);
    EXPECT_EQ(text.rfind("# HwDatablockTemplate 15026, 20 bytes: counts 4294967295*4294967295 "
                         "exceed the capacity 1*1\n",
                         0),
              0u);
    std::unique_ptr<HwDatablock> object = image.makeBlock(0);
    EXPECT_LT(printed(*object).size(), 4096u);
}

// Printing stops at the cells the image holds, whatever the counts say.
TEST(BoundedWork, TablePrintoutsStopAtTheCapacity) {
    // 16 bytes of VECTOR_RFLEVEL_MAX_DATA (1 x 128) with counts 0xFFFFFFFF.
    QByteArray tiny = bytesOf({0xB9, 0x3D, 16, 0, 0, 0, 0, 0});
    tiny.append(QByteArray(8, '\xFF'));
    HwDatablockTeshVectorRfLevelMaxData vector;
    vector.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(tiny.constData()),
                                       static_cast<unsigned>(tiny.size()));
    const std::string text = printed(vector);
    EXPECT_NE(text.find("COUNT:  4294967295*4294967295"), std::string::npos);
    EXPECT_LT(text.size(), 128u * 40u);

    // Found by the block fuzzer: RFBO_ALC_FREQ (10 x 1) claiming 1030946816 x 1847132336 cells.
    QByteArray alc = bytesOf({0x72, 0x3D, 0x38, 0x00, 0x2A, 0x66, 0x00, 0x00, //
                              0x00, 0x00, 0x73, 0x3D, 0xB0, 0x00, 0x19, 0x6E});
    alc.append(QByteArray(40, '\x07'));
    HwDatablockOroRfboAlcFreq freq;
    freq.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(alc.constData()),
                                     static_cast<unsigned>(alc.size()));
    EXPECT_EQ(freq.getRowCount(), 1030946816u);
    EXPECT_LT(printed(freq).size(), 10u * 40u);

    // The line form with row indexes and the headed line form alike.
    QByteArray attImage(16, '\0');
    attImage[0] = static_cast<char>(15721 & 0xFF);
    attImage[1] = static_cast<char>(15721 >> 8);
    putLE32(attImage, 8, 0xFFFFFFFF);
    putLE32(attImage, 12, 0xFFFFFFFF);
    HwDatablockOroRfboAttCalData att;
    att.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(attImage.constData()),
                                    static_cast<unsigned>(attImage.size()));
    EXPECT_LT(printed(att).size(), 27u * 200u * 16u);
    HwDatablockKivRfboAttRegData headed;
    attImage[0] = static_cast<char>(15799 & 0xFF);
    attImage[1] = static_cast<char>(15799 >> 8);
    headed.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(attImage.constData()),
                                       static_cast<unsigned>(attImage.size()));
    EXPECT_LT(printed(headed).size(), 50u * 4u * 40u);
}

TEST(BoundedWork, ComplaintsAboutOneSectionAreSummarised) {
    std::string text = "ID:  RFBO_ATT_CAL_DATA\n";
    for (int i = 0; i < 2000; ++i)
        text += "junk line\n";
    text += "COUNT:  1*1\n0: 5\n";
    HwDatablockOroRfboAttCalData block;
    std::istringstream in(text);
    const TextReadStatus status = block.readSection(in, block);
    EXPECT_LE(status.complaints.size(), size_t(TextReadStatus::kMaxComplaints));
    EXPECT_LT(status.message().size(), 2000u);
}

// A self-describing block whose header claims thousands of columns beside a column of
// thousands of rows: its page shows the cells in proportion to what the image holds.
TEST(BoundedWork, SelfDescribingPageOfAClaimedHugeTable) {
    const QByteArray input = readFile(
        QStringLiteral(EPROM_TEST_DATA_DIR "/robustness/selfdescribing-page-quadratic.fuzz"));
    ASSERT_GT(input.size(), 2);
    // The fuzz input: a 16-bit length, the image, then calibration text.
    const int length = quint8(input[0]) | quint8(input[1]) << 8;
    const EepromImage image = EepromImage::fromBytes(input.mid(2, length));
    const std::string text = exportImage(image);
    EXPECT_LT(text.size(), 64u * static_cast<std::size_t>(image.size()));
    EXPECT_NE(text.find("USER_"), std::string::npos);
}

// A record section that lost its lines: the complaints about it are summarised too.
TEST(BoundedWork, RecordSectionWithoutItsLinesGivesFiveComplaintsAndACount) {
    const EepromImage image = EepromImage::fromBytes(sampleImage());
    const ImportPlan plan = planImport(image, "ID:              IDENT_2\n");
    ASSERT_TRUE(plan.ok) << plan.error.toStdString();
    ASSERT_EQ(plan.blocks.size(), 1);
    EXPECT_EQ(plan.blocks[0].outcome, ImportedBlock::Unchanged);
    ASSERT_EQ(plan.blocks[0].complaints.size(), 6);
    EXPECT_EQ(plan.blocks[0].complaints[0], "no ALIGNMENT: line, ALIGNMENT kept");
    EXPECT_EQ(plan.blocks[0].complaints[5], "... and 5 more lines like this");
}
