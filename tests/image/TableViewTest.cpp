// The frequency axis of calibration tables: the catalogue's pairing against the capacities of
// the classes, against the blocks an image holds; and the module report built on it.
#include "directory/Catalogue.h"
#include "support/TestImages.h"

#include <EepromImage.h>
#include <HwCalibTableBlocks.h>
#include <ModuleReport.h>
#include <TableView.h>

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <type_traits>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

QByteArray chain(const QVector<QByteArray>& blocks) {
    QByteArray bytes;
    for (const QByteArray& block : blocks)
        bytes += sealed(block);
    return bytes + endBlock() + QByteArray(16, '\xFF');
}

// A table image of class Block with `rows` by `cols` cells, cell (r, c) = first + 10 r + c.
template <class Block> QByteArray table(unsigned rows, unsigned cols, int first) {
    Block block(false);
    block.setRowCount(rows);
    block.setColCount(cols);
    for (unsigned r = 0; r < rows; ++r)
        for (unsigned c = 0; c < cols; ++c)
            block.setCalValue(
                static_cast<std::remove_reference_t<decltype(block.getBlock()->values[0][0])>>(
                    first + static_cast<int>(10 * r + c)),
                r, c);
    return block.getByteArrayData();
}

TableView viewAt(const EepromImage& image, int index) {
    TableView view;
    EXPECT_TRUE(tableView::view(image, index, view));
    return view;
}

} // namespace

TEST(TableView, EveryAxisOfTheCatalogueIsAVectorWithOnePointPerColumn) {
    std::map<quint16, QByteArray> fresh;
    for (const catalogue::TableFacts& row : catalogue::tables())
        fresh[row.id] =
            std::unique_ptr<HwDatablock>(row.recipe.make(row.id, nullptr))->getByteArrayData();
    int pairs = 0;
    for (const catalogue::TableFacts& row : catalogue::tables()) {
        EXPECT_EQ(tableView::axisOf(row.id), row.axisId);
        if (row.axisId == 0)
            continue;
        SCOPED_TRACE(row.id);
        ASSERT_EQ(fresh.count(row.axisId), 1u);
        const EepromImage image = EepromImage::fromBytes(chain({fresh[row.axisId], fresh[row.id]}));
        TableContent vector;
        TableContent data;
        ASSERT_TRUE(readTable(image, 0, vector) && readTable(image, 1, data));
        EXPECT_EQ(vector.maxCols, 1u);
        EXPECT_EQ(vector.maxRows, data.maxCols);
        ++pairs;
    }
    EXPECT_EQ(pairs, 23);
    EXPECT_EQ(tableView::axisOf(15740), 15735); // RFBO_TEMP_FREQ serves both tables
    EXPECT_EQ(tableView::axisOf(15745), 15735);
    EXPECT_EQ(tableView::axisOf(15730), 0); // the vector itself has none
    EXPECT_EQ(tableView::axisOf(15750), 0);
}

TEST(TableView, PairsWithTheVectorInTheImageAndSaysWhyNot) {
    const QByteArray freq = table<HwDatablockOroRfboTempFreq>(3, 1, 1000); // 100 kHz ...
    const QByteArray gradient = table<HwDatablockOroRfboTempGradient>(2, 3, 7);
    const QByteArray offset = table<HwDatablockOroRfboTempOffset>(1, 3, -5);
    EepromImage image = EepromImage::fromBytes(chain({freq, gradient, offset}));
    for (int index : {1, 2}) {
        const TableView view = viewAt(image, index);
        EXPECT_TRUE(view.axis.present());
        EXPECT_EQ(view.axis.name, "RFBO_TEMP_FREQ");
        EXPECT_EQ(view.axis.index, 0);
        EXPECT_EQ(view.axis.hz, (std::vector<double>{100000, 101000, 102000}));
        EXPECT_TRUE(view.axis.ascending);
    }
    const std::vector<PlotLine> lines = viewAt(image, 1).lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1].label, "row 2");
    EXPECT_EQ(lines[1].x, (std::vector<double>{100000, 101000, 102000}));
    EXPECT_EQ(lines[1].y, (std::vector<double>{17, 18, 19}));
    EXPECT_EQ(viewAt(image, 1).cellText(1, 2), "19.000");
    const TableView vector = viewAt(image, 0);
    EXPECT_TRUE(vector.isAxis && vector.isVector() && vector.axis.id == 0);
    EXPECT_EQ(vector.lines().at(0).x, (std::vector<double>{1, 2, 3}));

    // A second vector and table: the second table takes the second vector.
    const QByteArray descending = table<HwDatablockOroRfboTempFreq>(3, 1, 3000);
    QByteArray reversed = descending;
    HwDatablockOroRfboTempFreq turn(false);
    load(turn, reversed);
    turn.setCalValue(1, 2, 0);
    image = EepromImage::fromBytes(chain({freq, gradient, turn.getByteArrayData(), gradient}));
    EXPECT_EQ(viewAt(image, 3).axis.index, 2);
    EXPECT_FALSE(viewAt(image, 3).axis.ascending);
    EXPECT_TRUE(viewAt(image, 1).axis.ascending);

    image = EepromImage::fromBytes(chain({table<HwDatablockOroRfboTempFreq>(4, 1, 1), gradient}));
    TableView view = viewAt(image, 1);
    EXPECT_EQ(view.axis.problem, "RFBO_TEMP_FREQ holds 4 points for 3 columns");
    EXPECT_TRUE(view.axis.hz.empty());
    EXPECT_EQ(view.lines().at(0).x, (std::vector<double>{1, 2, 3}));
    view = viewAt(EepromImage::fromBytes(chain({gradient})), 0);
    EXPECT_EQ(view.axis.problem, "no RFBO_TEMP_FREQ (id 15735) in the image");
    EXPECT_EQ(view.axis.index, -1);

    const TableView att = viewAt(EepromImage::fromBytes(example("sample.eeprom")), 7);
    EXPECT_EQ(att.name, "RFBO_ATT_CAL_VEC_DATA");
    EXPECT_EQ(att.rowLabels, QStringList({"0", "10", "20", "30"}));
    EXPECT_EQ(att.lines().at(1).label, "index 10");
    EXPECT_EQ(tableView::frequencyText(1.5e9), "1.5 GHz");
    EXPECT_EQ(tableView::frequencyText(900e3), "900 kHz");
    EXPECT_EQ(tableView::frequencyText(12), "12 Hz");
}

TEST(ModuleReport, ComparesFieldsCellsAndBlocksOfTwoImages) {
    const EepromImage a = EepromImage::fromBytes(example("sample.eeprom"));
    QByteArray edited = example("sample.eeprom");
    QByteArray alc = edited.mid(0xa4, 176);
    HwDatablockOroRfboAlcData block(false);
    load(block, alc);
    block.setCalValue(2050, 1, 3);
    edited.replace(0xa4, 176, block.getByteArrayData());
    edited[0x2cd8 + 20] = 0x55; // a byte of the self-describing block; its CRC now fails
    const EepromImage b = EepromImage::fromBytes(edited);

    const ModuleReport single = moduleReport::build(a);
    EXPECT_FALSE(single.compared);
    EXPECT_EQ(single.tables.size(), 8u);
    EXPECT_EQ(single.fields.size(), 26);
    EXPECT_EQ(single.others.size(), 1);
    EXPECT_EQ(single.tables[1].differing, 0);

    const ModuleReport report = moduleReport::compare(a, b);
    EXPECT_TRUE(report.side[0].ok);
    EXPECT_FALSE(report.side[1].ok);
    ASSERT_EQ(report.tables.size(), 8u);
    const ReportTable& data = report.tables[1];
    EXPECT_EQ(data.first().name, "RFBO_ALC_DATA");
    EXPECT_EQ(data.differing, 1);
    EXPECT_TRUE(data.cellDiffers(1, 3));
    EXPECT_FALSE(data.cellDiffers(1, 2));
    for (std::size_t i = 0; i < report.tables.size(); ++i)
        EXPECT_EQ(report.tables[i].differing, i == 1 ? 1 : 0);
    int differing = 0;
    for (const ReportField& field : report.fields)
        differing += field.differs ? 1 : 0;
    EXPECT_EQ(differing, 0);
    ASSERT_EQ(report.others.size(), 1);
    EXPECT_TRUE(report.others[0].differs);
    EXPECT_EQ(report.others[0].name, "USER_20010");

    // A chain of thousands of tables stops at the cell limit (broken chains are held by the
    // tool's report tests).
    const QByteArray many = example("sample.eeprom").mid(0xa4, 176); // 4*10 cells
    QByteArray big;
    while (big.size() + many.size() < EepromImage::MaxFileSize - 4)
        big += many;
    const ModuleReport huge = moduleReport::build(EepromImage::fromBytes(big + endBlock()));
    const std::size_t shown = huge.tables.size();
    EXPECT_EQ(shown + huge.tablesLeftOut, static_cast<std::size_t>(big.size() / many.size()));
    EXPECT_EQ(shown, std::min(ModuleReport::MaxCells / 40, ModuleReport::MaxTables));
    // Tables of 27*20 cells reach the cell limit first: 371 of them hold 200340 cells.
    HwDatablockTeshRfboAttCalVecData full(false);
    full.setRowCount(27);
    full.setColCount(20);
    const QByteArray wide = full.getByteArrayData();
    big.clear();
    while (big.size() + wide.size() < EepromImage::MaxFileSize - 4)
        big += wide;
    EXPECT_EQ(moduleReport::build(EepromImage::fromBytes(big + endBlock())).tables.size(), 371u);
}
