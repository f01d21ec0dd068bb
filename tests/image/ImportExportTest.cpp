// A calibration file out of an image and back in: the export's exact text, the import plan's
// outcomes and notes, and the malformed sections that stop it.
#include "support/TestImages.h"

#include <HwCalibTableBlocks.h>
#include <ImageExport.h>
#include <ImageImport.h>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

const QString kAlc = QStringLiteral("ID:  RFBO_ALC_DATA");

EepromImage sample() {
    return EepromImage::fromBytes(example("sample.eeprom"));
}

QByteArray exported(const EepromImage& image) {
    return QByteArray::fromStdString(exportImage(image));
}

const ImportedBlock* findBlock(const ImportPlan& plan, quint16 id) {
    for (const ImportedBlock& block : plan.blocks)
        if (block.id == id)
            return &block;
    return nullptr;
}

} // namespace

TEST(ImageExport, SampleAndTablesOverTheirCapacity) {
    EXPECT_TRUE(exported(sample()) == example("sample.cal"));
    EXPECT_EQ(exportImage(sample(), {15731, 2}).substr(0, 20), "# Das sind die Kopfd");

    const EepromImage tooMany = EepromImage::fromBytes(sampleWithAlcRows(5));
    const QByteArray block = tooMany.blockBytes(5);
    std::string expected = "# HwDatablockOroRfboAlcData 15731, 176 bytes: counts 5*10 exceed the "
                           "capacity 4*10\n";
    for (int at = 0; at < 176; at += 16)
        expected += "# " + block.mid(at, 16).toHex(' ').toStdString() + "\n";
    EXPECT_EQ(exportBlock(tooMany, 5), expected + "\n");
    EXPECT_EQ(exportBlock(tooMany, 14), "");
}

TEST(ImageImport, EditsAreNamedInTheBlocksTermsAndTheRestIsListedAsSkipped) {
    const EepromImage image = sample();
    const ImportPlan same = planImport(image, example("sample.cal"));
    ASSERT_TRUE(same.ok()) << same.outcome.message.toStdString();
    EXPECT_EQ(same.changedCount(), 0);
    EXPECT_EQ(same.blocks.size(), 12); // eight tables and four records

    const QString att = QStringLiteral("ID:  RFBO_ATT_CAL_VEC_DATA");
    QByteArray text = sampleCalWithEditedCell();
    text = editLine(text, "ID:              IDENT_2", "SN:", "SN:              999999");
    text = editLine(text, "ID:  RFBO_ALC_FREQ", "COUNT:", "COUNT:  9*1");
    // 20 junk lines where 5 are allowed, and one column more than the rows hold.
    text.replace(att.toUtf8() + "\n", att.toUtf8() + "\n" + QByteArray("junk\n").repeated(20));
    text = editLine(text, att, "COUNT:", "COUNT:  4*6");
    text = editLine(text, att, "20: ", "25: \t2006.000\t2003.000\t1997.000\t1991.000\t1982.000");
    text = editLine(text, "ID:  RFBO_EXT_CAL_VEC_USER_DATA",
                    "DESCRIPTOR7:", "DESCRIPTOR7: PATH_RF_C") +
           "\nID:  NO_SUCH_BLOCK\n";
    const ImportPlan plan = planImport(image, text);
    ASSERT_TRUE(plan.ok()) << plan.outcome.message.toStdString();
    EXPECT_EQ(plan.changedCount(), 5);
    const struct {
        quint16 id;
        const char* change;
    } expected[] = {{2, "SN 102345 -> 999999"},
                    {15730, "1 cell changed, counts 10*1 -> 9*1"},
                    {15731, "1 cell changed"},
                    {15843, "0 cells changed, counts 4*5 -> 4*6, 1 index changed"},
                    {16003, "0 cells changed, 1 descriptor changed"}};
    for (const auto& e : expected) {
        const ImportedBlock* block = findBlock(plan, e.id);
        ASSERT_NE(block, nullptr) << e.id;
        EXPECT_EQ(block->note,
                  QStringLiteral("%1, checksum %2 -> %3")
                      .arg(e.change, hex4(word(block->before, 4)), hex4(word(block->after, 4))));
        EXPECT_EQ(word(sealed(block->after), 4), word(block->after, 4)) << e.id;
    }
    EXPECT_EQ(valueAt<quint32>(findBlock(plan, 2)->after, 20), 999999u);
    QByteArray alc = image.blockBytes(5);
    putAt<qint32>(alc, 16 + (10 + 3) * 4, 2050); // row 1, column 3
    EXPECT_EQ(hex(findBlock(plan, 15731)->after), hex(sealed(alc)));
    HwDatablockTeshRfboAttCalVecData table;
    load(table, findBlock(plan, 15843)->after);
    EXPECT_EQ(std::make_tuple(table.getIndex(2), table.getColCount(), table.getCalValue(2, 4)),
              std::make_tuple(25, 6u, 1982));
    // 15 complaints about the junk and 4 about the rows, summarised.
    QStringList complaints;
    for (int line = 73; line <= 77; ++line)
        complaints << QStringLiteral(
                          "line %1: ERROR: Number of lines between ID and Count to large")
                          .arg(line);
    EXPECT_EQ(findBlock(plan, 15843)->complaints, complaints << "... and 14 more lines like this");
    QStringList skipped;
    for (const SkippedSection& section : plan.skipped)
        skipped
            << QStringLiteral("%1 %2: %3").arg(section.name).arg(section.line).arg(section.reason);
    EXPECT_EQ(skipped, QStringList({"USER_20010 138: self-describing blocks are not imported",
                                    "NO_SUCH_BLOCK 155: no block of the image has this name"}));

    EepromImage copy = image;
    QByteArray bytes = image.bytes();
    for (const auto& e : expected) {
        const ImportedBlock* block = findBlock(plan, e.id);
        bytes.replace(block->offset, block->before.size(), block->after);
    }
    ASSERT_TRUE(applyPlan(copy, plan).ok());
    EXPECT_EQ(copy.bytes(), bytes);
}

TEST(ImageImport, ValuesThatOnlyRoundInTextKeepTheirStoredBytes) {
    // 19.40 stored as 1940 hundredths reads back from "19.400" as 1939.
    HwDatablockOroRfboRfLevelMaxData level;
    level.setRowCount(1);
    level.setColCount(2);
    level.setCalValue(1940, 0, 0);
    level.setCalValue(1850, 0, 1);
    const EepromImage image =
        EepromImage::fromBytes(level.getByteArrayData() + endBlock() + QByteArray(8, '\xFF'));
    const QByteArray text = exported(image);
    const ImportPlan unedited = planImport(image, text);
    ASSERT_EQ(unedited.blocks.size(), 1);
    EXPECT_EQ(unedited.blocks[0].outcome, ImportedBlock::Unchanged);

    QString row = QString::fromUtf8(text).split('\n').filter(QRegExp("^1: ")).value(0);
    const ImportPlan plan = planImport(
        image, editLine(text, "ID:  RFBO_RFLEVEL_MAX_DATA", "1: ", row.replace("18.500", "18")));
    level.setCalValue(1800, 0, 1);
    EXPECT_EQ(hex(plan.blocks.value(0).after), hex(level.getByteArrayData()));
    EXPECT_EQ(plan.blocks.value(0).note, "1 cell changed, checksum 0xafbb -> 0xafed");
}

TEST(ImageImport, BlocksThatCannotBeReplacedAreReportedAndLeftAlone) {
    const QByteArray original = example("sample.eeprom");
    QByteArray badChecksum = original;
    badChecksum[0xa4 + 4] = static_cast<char>(badChecksum[0xa4 + 4] ^ 0x01);
    HwDatablockOroRfboAlcFreq freq;
    QByteArray longer = freq.getByteArrayData() + bytesOf({0, 0, 0, 0});
    longer[2] = 60;
    sealChecksum(longer);
    const struct {
        QByteArray image;
        quint16 id;
        const char* note;
    } cases[] = {
        {badChecksum, 15731, "its checksum is bad"},
        {sampleWithAlcRows(5), 15731, "its counts 5*10 exceed the capacity 4*10"},
        {longer + endBlock(), 15730, "its size is 60 bytes, the table's image has 56"},
    };
    // A headed table reads other row indexes back as row numbers; the register table prints the
    // plain form but reads the headed one, so its section is skipped.
    HwDatablockKivRfboTempCompData headed;
    headed.setRowCount(2);
    headed.setColCount(3);
    headed.setIndex(-20, 0);
    headed.setIndex(2, 1);
    headed.setCalValue(-5, 1, 2);
    HwDatablockKivRfboAttRegData registers;
    registers.setRowCount(1);
    registers.setColCount(2);
    registers.setCalValue(7, 0, 1);
    const EepromImage own = EepromImage::fromBytes(headed.getByteArrayData() +
                                                   registers.getByteArrayData() + endBlock());
    const ImportPlan ownPlan = planImport(own, exported(own));
    ASSERT_TRUE(ownPlan.ok() && ownPlan.blocks.size() == 1 && ownPlan.skipped.size() == 1);
    EXPECT_EQ(ownPlan.blocks[0].outcome, ImportedBlock::NotImportable);
    EXPECT_EQ(ownPlan.blocks[0].note, "its own text form reads back 1 index differently");
    EXPECT_EQ(ownPlan.skipped[0].name + ": " + ownPlan.skipped[0].reason,
              "KIV_RFBO_ATTREG_DATA: its table does not read its own text form back");

    // Every cell of the table edited, so a silent skip would show as well.
    QByteArray text = example("sample.cal");
    text.replace(".000\t", "1.000\t");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.note);
        EepromImage image = EepromImage::fromBytes(c.image);
        const ImportPlan plan = planImport(image, text);
        const ImportedBlock* block = findBlock(plan, c.id);
        ASSERT_TRUE(plan.ok() && block != nullptr) << plan.outcome.message.toStdString();
        EXPECT_EQ(block->outcome, ImportedBlock::NotImportable);
        EXPECT_EQ(block->note, c.note);
        applyPlan(image, plan);
        EXPECT_EQ(image.blockBytes(block->index), block->before);
    }
}

TEST(ImageImport, MalformedSectionsStopThePlanWithSectionAndLine) {
    const QByteArray text = example("sample.cal");
    const QString att = QStringLiteral("ID:  RFBO_ATT_CAL_VEC_DATA");
    const struct {
        QByteArray text;
        const char* error;
    } cases[] = {
        {editLine(text, kAlc, "COUNT:", "COUNT:  1*-1"),
         "section RFBO_ALC_DATA, line 53: column count 4294967295 is negative (-1)"},
        {editLine(text, kAlc, "2: ", "2: \t2010.000\t20"),
         "section RFBO_ALC_DATA, line 56: value '3:' in row 2, column 3 could not be read"},
        {"# only this section\nID:  RFBO_ALC_DATA\n1: 5\n",
         "section RFBO_ALC_DATA, line 3: can not find 'COUNT:'"},
        // The line form adds the reader's complaints.
        {editLine(text, att, "COUNT:", "COUNT:  28*5"),
         "section RFBO_ATT_CAL_VEC_DATA, line 68: row count 28 above the capacity 27; line 68: "
         "ERROR: Row value (COUNT) don't not equal with number of rows"},
        // A section without its count line fails at its own last line instead of taking the
        // count line of the section behind it; the lines are the whole file's.
        {editLine(text, kAlc, "COUNT:", "# no count"),
         "section RFBO_ALC_DATA, line 58: can not find 'COUNT:'"},
        {editLine(text, att, "COUNT:", "# no count"),
         "section RFBO_ATT_CAL_VEC_DATA, line 73: can not find 'COUNT:'; line 73: ERROR: FOUND NO "
         "COUNT VALUES !"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.error);
        ASSERT_FALSE(c.text.isEmpty());
        const ImportPlan plan = planImport(sample(), c.text);
        EXPECT_EQ(plan.outcome.code, ResultCode::BadText);
        EXPECT_EQ(plan.outcome.message, c.error);
        EXPECT_TRUE(plan.replace.isEmpty());
        EepromImage image = sample();
        const Outcome applied = applyPlan(image, plan);
        EXPECT_EQ(std::make_pair(applied.code, applied.message),
                  std::make_pair(plan.outcome.code, plan.outcome.message));
        EXPECT_EQ(image.bytes(), example("sample.eeprom"));
    }
}

TEST(TableChange, NamesEveryKindOfChangeWithItsCount) {
    const TableChange change{4, 10, 4, 11, 1, 2, 3};
    EXPECT_EQ(change.text(),
              "1 cell changed, counts 4*10 -> 4*11, 2 indexes changed, 3 descriptors changed");
    EXPECT_EQ(change.differences(),
              "reads back 1 cell and the counts and 2 indexes and 3 descriptors differently");
    EXPECT_EQ(TableChange().text(), "0 cells changed");
    EXPECT_EQ(TableChange().differences(), "does not read back to the same bytes");
}
