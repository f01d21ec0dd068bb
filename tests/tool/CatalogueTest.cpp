// The library-backed catalogue: names from the catalogue lists and printouts, which blocks read
// their sections back, and how a table's change is put into words.
#include "TestImages.h"

#include <CoutCapture.h>
#include <HwCalibTableBlocks.h>
#include <LibraryCatalogue.h>
#include <TableChange.h>
#include <TableKinds.h>
#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;
using namespace epromtool;

namespace {

QByteArray headerOnly(int id) {
    return sealed(bytesOf({id & 0xFF, id >> 8, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00}));
}

} // namespace

TEST(LibraryCatalogue, NamesComeFromTheCatalogueListsAndThePrintout) {
    LibraryCatalogue catalogue;
    EXPECT_EQ(catalogue.className(headerOnly(15731)), "HwDatablockOroRfboAlcData");
    EXPECT_EQ(catalogue.className(headerOnly(15606)), "HwDatablockWexWiqRfImbalanceData");
    EXPECT_EQ(catalogue.className(headerOnly(10002)), "HwDatablockSsynOpuLevelFreq");
    EXPECT_EQ(catalogue.className(headerOnly(12051)), "HwDatablockMbrdExtLevCalDataFreq");
    EXPECT_EQ(catalogue.className(headerOnly(209)), "HwDatablockServiceData");
    EXPECT_EQ(catalogue.className(headerOnly(12300)), "HwDatablockTemplate");
    EXPECT_EQ(catalogue.className(headerOnly(11304)), "HwDatablockTemplateWithoutChecksum");
    // The directory decides: 14801 is a rear IQ imbalance block there.
    EXPECT_EQ(catalogue.className(headerOnly(14801)), "HwDatablockDacbIqImbalanceRearPh");
    EXPECT_EQ(catalogue.className(headerOnly(20000)), "HwDatablock2Edition");
    EXPECT_EQ(catalogue.className(endBlock()), "HwDatablockEnd");
    EXPECT_EQ(catalogue.className(headerOnly(0)), "HwDatablock");

    EXPECT_EQ(LibraryCatalogue::idText("# comment\nID:              IDENT_2\nID:  OTHER\n"),
              "IDENT_2");
    EXPECT_EQ(LibraryCatalogue::idText("ID: \t BACKUP OF POWERON COUNT \n1: \t0\n"),
              "BACKUP OF POWERON COUNT");
    EXPECT_EQ(LibraryCatalogue::idText("#       Parameter COUNT: 1 * 1\n  ID:  INDENTED\n"), "");
    EXPECT_EQ(LibraryCatalogue::idText("ID:"), "");

    // A table's section goes by its name, a headed table's by its key.
    HwDatablockKivRfboTempCompData headed;
    EXPECT_EQ(catalogue.textId(headed.getByteArrayData()), "BLOCK_KIV_RFBO_TEMP_COMP_DATA");
    HwDatablockOroRfboTcxoCal tcxo;
    EXPECT_EQ(catalogue.textId(tcxo.getByteArrayData()), "RFBO_TCXO_CAL");
    EXPECT_EQ(catalogue.textId(endBlock()), "END");
}

TEST(LibraryCatalogue, TablesWithANameOfTheirOwnReadTheirSectionsBack) {
    LibraryCatalogue catalogue;
    EXPECT_TRUE(catalogue.readsAscii(headerOnly(15731)));
    EXPECT_TRUE(catalogue.readsAscii(headerOnly(15710))); // the TCXO table
    EXPECT_TRUE(catalogue.readsAscii(headerOnly(15771))); // a headed table
    // Their callers name these two, so no section can be found for them.
    EXPECT_FALSE(catalogue.readsAscii(headerOnly(15606)));
    EXPECT_FALSE(catalogue.readsAscii(headerOnly(15853)));
    EXPECT_FALSE(catalogue.readsAscii(headerOnly(2)));
    EXPECT_FALSE(catalogue.readsAscii(headerOnly(10001)));

    // The headed table finds its section by its key among other sections. Its rows are
    // numbered from 1 in that form, and numbered so they read back.
    HwDatablockKivRfboTempCompData headed;
    headed.setRowCount(2);
    headed.setColCount(3);
    headed.setIndex(1, 0);
    headed.setIndex(2, 1);
    headed.setCalValue(-5, 1, 2);
    const QByteArray block = headed.getByteArrayData();
    std::ostringstream file;
    file << "ID:  RFBO_ALC_DATA\nCOUNT:  1*1\n1:  2.000\n\n";
    catalogue.print(block, file);
    std::istringstream in(file.str());
    const SectionRead read = catalogue.parse(block, in);
    EXPECT_EQ(read.outcome, SectionRead::Read);
    EXPECT_EQ(read.image, block);

    // A file without its section leaves the block unread.
    std::istringstream other("ID:  RFBO_ALC_DATA\nCOUNT:  1*1\n1:  2.000\n\n");
    const CoutCapture complaints;
    EXPECT_EQ(catalogue.parse(block, other).outcome, SectionRead::Unreadable);
    EXPECT_EQ(complaints.text(), "ERROR: FOUND NO ID !\n");

    // Other indexes would come back as row numbers.
    headed.setIndex(-20, 0);
    std::istringstream again(file.str());
    const SectionRead lost = catalogue.parse(headed.getByteArrayData(), again);
    EXPECT_EQ(lost.outcome, SectionRead::NotImportable);
    EXPECT_EQ(lost.note, "its own text form reads back 1 index differently");
}

TEST(LibraryCatalogue, ATableThatPrintsOneFormAndReadsAnotherIsNotImportable) {
    // The attenuator register table prints the plain table form but reads the headed one.
    HwDatablockKivRfboAttRegData registers;
    registers.setRowCount(1);
    registers.setColCount(2);
    registers.setCalValue(7, 0, 1);
    const QByteArray block = registers.getByteArrayData();
    LibraryCatalogue catalogue;
    EXPECT_EQ(catalogue.textId(block), "KIV_RFBO_ATTREG_DATA");
    std::istringstream in("anything");
    const SectionRead read = catalogue.parse(block, in);
    EXPECT_EQ(read.outcome, SectionRead::NotImportable);
    EXPECT_EQ(read.note, "its own text form reads back 1 cell and the counts differently");

    // With no cell set only the counts are lost.
    HwDatablockKivRfboAttRegData empty;
    empty.setRowCount(1);
    EXPECT_EQ(LibraryCatalogue::importBlocker(*TableKinds::find(15799), empty.getByteArrayData()),
              "its own text form reads back the counts differently");
}

TEST(TableChange, NamesEveryKindOfChangeWithItsCount) {
    TableChange change;
    change.rowsBefore = change.rowsAfter = 4;
    change.colsBefore = 10;
    change.colsAfter = 11;
    change.cells = 1;
    change.indexes = 2;
    change.descriptors = 3;
    EXPECT_EQ(change.text(),
              "1 cell changed, counts 4*10 -> 4*11, 2 indexes changed, 3 descriptors changed");
    EXPECT_EQ(change.differences(),
              "reads back 1 cell and the counts and 2 indexes and 3 descriptors differently");
    EXPECT_EQ(TableChange().text(), "0 cells changed");
    EXPECT_EQ(TableChange().differences(), "does not read back to the same bytes");
}
