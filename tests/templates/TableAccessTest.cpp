// Cell access of the table templates: scaling per value type, capacity bounds, the relation
// operators of the search and the two remove operations.
#include "TemplateTestSupport.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
using IntTable = HwDatablockBaseTemplate<int, int, 4, 10>;
using IntVector = HwDatablockBaseTemplate<int, int, 10, 1>;

template <class Block> void fillColumn(Block& block, std::initializer_list<int> values) {
    unsigned row = 0;
    for (int v : values)
        block.setCalValue(v, row++, 0);
    block.setRowCount(static_cast<unsigned>(values.size()));
}
} // namespace

TEST(TableScaling, IntegerValuesTruncateTowardZero) {
    HwDatablockBaseTemplate<int, int, 8, 1> hundredths("T", 1, 0, 0.01, false);
    hundredths.setCalValue(12345, 0, 0);
    hundredths.setCalValue(-12345, 1, 0);
    EXPECT_EQ(hundredths.getCalValue(0, 0), 123);
    EXPECT_EQ(hundredths.getCalValue(1, 0), -123);

    HwDatablockBaseTemplate<short, short, 6, 1> shorts("T", 1, 0, 2.5, false);
    shorts.setCalValue(3, 0, 0);
    shorts.setCalValue(-3, 1, 0);
    shorts.setCalValue(30000, 2, 0); // 75000 does not fit: saturated, never undefined
    EXPECT_EQ(shorts.getCalValue(0, 0), 7);
    EXPECT_EQ(shorts.getCalValue(1, 0), -7);
    EXPECT_EQ(shorts.getCalValue(2, 0), 32767);

    HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 1> words("T", 1, 0, 1.0, false);
    words.setCalValue(4000000000u, 49, 0);
    EXPECT_EQ(words.getCalValue(49, 0), 4000000000u);
}

TEST(TableScaling, FloatingValuesKeepTheProduct) {
    HwDatablockBaseTemplate<unsigned int, double, 10, 1> freq("RFBO_ALC_FREQ", 15730, 0, 100,
                                                              false);
    freq.setCalValue(100000, 0, 0);
    EXPECT_EQ(freq.getCalValue(0, 0), 10000000.0);

    HwDatablockBaseTemplate<int, double, 2, 128> level("T", 15716, 0, 0.01, false);
    level.setCalValue(-1234, 1, 5);
    EXPECT_DOUBLE_EQ(level.getCalValue(1, 5), -12.34);

    HwDatablockBaseTemplate<char, double, 12, 1> temps("T", 15850, 0, 1.0, false);
    temps.setCalValue(static_cast<char>(-5), 11, 0); // char is stored signed
    EXPECT_EQ(temps.getCalValue(11, 0), -5.0);

    HwDatablockBaseTemplate<unsigned short, double, 64, 1> levcon("T", 15851, 0, 0.5, false);
    levcon.setCalValue(65535, 63, 0);
    EXPECT_EQ(levcon.getCalValue(63, 0), 32767.5);

    HwDatablockBaseTemplate<float, float, 50, 4> att("T", 15798, 0, 0.5, false);
    att.setCalValue(3.0f, 49, 3);
    EXPECT_EQ(att.getCalValue(49, 3), 1.5f);

    // Floats are widened before the factor applies: the float's own value comes out.
    char name[] = "IQ";
    HwDatablockBaseTemplateWexW<float, double, 50, 7> wexw(name, 15606, 0, 1.0, false);
    wexw.setCalValue(0.1f, 0, 6);
    EXPECT_EQ(wexw.getCalValue(0, 6), static_cast<double>(0.1f));
}

TEST(TableCapacity, OutsideTheCapacityReadsZeroAndWritesNothing) {
    IntTable block("T", 1, 0, 1.0, false);
    block.setCalValue(11, 3, 9); // last cell of the capacity
    EXPECT_EQ(getU32(block.getByteArrayData(), 16 + (3 * 10 + 9) * 4), 11u);
    block.setRowCount(9); // the counts do not widen the capacity
    block.setColCount(20);
    EXPECT_EQ(block.getRowCount(), 9u);
    EXPECT_EQ(block.getColCount(), 20u);
    EXPECT_EQ(wordSum(block.getByteArrayData()), 0u);
    EXPECT_EQ(block.getCalValue(4, 0), 0);
    EXPECT_EQ(block.getCalValue(0, 10), 0);
    const QByteArray before = block.getByteArrayData();
    block.setCalValue(5, 4, 0);
    block.setCalValue(5, 0, 10);
    block.setCalValue(5, 0xFFFFFFFFu, 0xFFFFFFFFu);
    EXPECT_EQ(block.getByteArrayData(), before);
}

TEST(TableCapacity, ShortImageReadsZeroAndIgnoresSetters) {
    HwDatablockBaseTemplateIndex<int, int, 27, 20> block("T", 15843, 0, 1.0, false);
    block.setCalValue(5, 0, 0);
    block.setRowCount(1);
    block.resizeData(8); // a prototype of the block directory keeps only its header
    const QByteArray header = block.getByteArrayData();
    block.setRowCount(3);
    block.setColCount(3);
    block.setCalValue(1, 0, 0);
    block.setIndex(1, 0);
    block.removeValuesFromCol(0, 0, 0);
    block.removeValuesFromRow(0, 0, 0);
    EXPECT_EQ(block.getByteArrayData(), header);
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(block.getCalValue(0, 0), 0);
    EXPECT_EQ(block.getIndex(0), 0);
    bool found = false;
    EXPECT_EQ(block.findFirstValueInCol(0, 0, found, decltype(block)::HwRelEqual), 1u);
    EXPECT_EQ(printed(block), "ID:  T\nCOUNT:  0*0\n\n");
}

TEST(TableCapacity, SettersKeepTheChecksumValidAndStoreLittleEndian) {
    HwDatablockBaseTemplateIndex<int, int, 27, 20> block("T", 15843, 0, 1.0, false);
    block.setCalValue(0x01020304, 1, 2);
    block.setIndex(7, 0);
    block.setIndex(-2, 26);
    const QByteArray image = block.getByteArrayData();
    EXPECT_EQ(hex(image.mid(16 + (20 + 2) * 4, 4)), "04 03 02 01");
    EXPECT_EQ(hex(image.mid(2176, 4)), "07 00 00 00"); // index column behind 27 x 20 values
    EXPECT_EQ(hex(image.mid(2176 + 26 * 4, 4)), "fe ff ff ff");
    EXPECT_EQ(block.getIndex(0), 7);
    EXPECT_EQ(block.getIndex(26), -2);
    EXPECT_EQ(wordSum(image), 0u);
    block.setIndex(9, 27); // past the image: nothing written
    EXPECT_EQ(block.getIndex(27), 0);
    EXPECT_EQ(block.getByteArrayData(), image);
}

TEST(TableSearch, RelationOperators) {
    IntVector block("T", 1, 0, 1.0, false);
    fillColumn(block, {5, 10, 10, 20});
    const struct {
        int value;
        int op;
        unsigned row; // 1-based, 0 when nothing matches
        bool found;
    } cases[] = {
        {10, IntVector::HwRelEqual, 2, true},        {5, IntVector::HwRelEqual, 1, true},
        {7, IntVector::HwRelEqual, 0, false},        {10, IntVector::HwRelGreater, 3, true},
        {10, IntVector::HwRelLess, 0, true},         {10, IntVector::HwRelGreaterEqual, 2, true},
        {11, IntVector::HwRelGreaterEqual, 3, true}, {9, IntVector::HwRelLessEqual, 0, true},
        {4, IntVector::HwRelLessEqual, 0, false},    {10, 5, 0, false},
    };
    for (const auto& c : cases) {
        bool found = !c.found;
        EXPECT_EQ(block.findFirstValueInCol(c.value, 0, found,
                                            static_cast<IntVector::THwERelationOperator>(c.op)),
                  c.row)
            << c.value << " op " << c.op;
        EXPECT_EQ(found, c.found) << c.value << " op " << c.op;
    }
}

TEST(TableSearch, RowCountBoundsTheSearch) {
    IntVector block("T", 1, 0, 1.0, false);
    fillColumn(block, {5, 10});
    block.setRowCount(0); // the first row is examined all the same
    bool found = false;
    EXPECT_EQ(block.findFirstValueInCol(5, 0, found, IntVector::HwRelEqual), 1u);
    EXPECT_TRUE(found);
    EXPECT_EQ(block.findFirstValueInCol(10, 0, found, IntVector::HwRelEqual), 0u);
    EXPECT_FALSE(found);

    // Rows past the capacity read 0 and match like any other row.
    fillColumn(block, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    EXPECT_EQ(block.findFirstValueInCol(0, 0, found, IntVector::HwRelEqual), 0u);
    EXPECT_FALSE(found);
    block.setRowCount(0xFFFFFFFFu);
    EXPECT_EQ(block.findFirstValueInCol(0, 0, found, IntVector::HwRelEqual), 11u);
    EXPECT_TRUE(found);
    EXPECT_EQ(block.findFirstValueInCol(1, 0, found, IntVector::HwRelGreater), 1u);
    // A column outside the capacity reads 0 in every row.
    EXPECT_EQ(block.findFirstValueInCol(0, 1, found, IntVector::HwRelEqual), 1u);
}

TEST(TableSearch, FloatingEqualityNeverMatchesNaN) {
    using Doubles = HwDatablockBaseTemplate<double, double, 50, 1>;
    Doubles block("T", 1, 0, 1.0, false);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    fillColumn(block, {0, 0});
    block.setCalValue(nan, 0, 0);
    block.setCalValue(2.5, 1, 0);
    bool found = true;
    EXPECT_EQ(block.findFirstValueInCol(nan, 0, found, Doubles::HwRelEqual), 0u);
    EXPECT_FALSE(found);
    EXPECT_EQ(block.findFirstValueInCol(2.5, 0, found, Doubles::HwRelEqual), 2u);
    EXPECT_EQ(block.findFirstValueInCol(2.0, 0, found, Doubles::HwRelGreater), 1u);
    EXPECT_TRUE(found);
}

TEST(TableRemove, RemoveFromColClosesTheGapUpToTheRowCapacity) {
    HwDatablockBaseTemplate<int, int, 2, 128> wide("T", 1, 0, 1.0, false);
    for (int c = 0; c < 3; ++c)
        wide.setCalValue(c + 1, 0, c);
    wide.setColCount(3);
    wide.removeValuesFromCol(0, 1, 1);
    // Kept 2 is not below the row capacity 2: nothing is zeroed, the old cell stays.
    EXPECT_EQ(wide.getColCount(), 2u);
    EXPECT_EQ(wide.getCalValue(0, 0), 1);
    EXPECT_EQ(wide.getCalValue(0, 1), 3);
    EXPECT_EQ(wide.getCalValue(0, 2), 3);
    EXPECT_EQ(wordSum(wide.getByteArrayData()), 0u);

    wide.removeValuesFromCol(0, 1, 1); // two used columns: one kept, cell (0, 1) zeroed
    EXPECT_EQ(wide.getColCount(), 1u);
    EXPECT_EQ(wide.getCalValue(0, 1), 0);
    EXPECT_EQ(wide.getCalValue(0, 2), 3);

    // With fewer rows than columns the zero fill stops at the row capacity.
    IntTable table("T", 1, 0, 1.0, false);
    for (int c = 0; c < 6; ++c)
        table.setCalValue(c + 1, 1, c);
    table.setColCount(6);
    table.removeValuesFromCol(1, 0, 4);
    EXPECT_EQ(table.getColCount(), 1u);
    EXPECT_EQ(table.getCalValue(1, 0), 6);
    EXPECT_EQ(table.getCalValue(1, 3), 0);
    EXPECT_EQ(table.getCalValue(1, 4), 5);
    EXPECT_EQ(table.getCalValue(1, 5), 6);
    EXPECT_EQ(wordSum(table.getByteArrayData()), 0u);
}

TEST(TableRemove, RemoveFromColOfAVectorZeroesAlongTheValueArray) {
    // One column but ten rows of capacity: the fill runs over the following rows' cells.
    IntVector block("T", 1, 0, 1.0, false);
    fillColumn(block, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    block.setColCount(1);
    block.removeValuesFromCol(0, 0, 0);
    EXPECT_EQ(block.getColCount(), 0u);
    for (unsigned row = 0; row < 10; ++row)
        EXPECT_EQ(block.getCalValue(row, 0), 0) << row;
    EXPECT_EQ(block.getByteArrayData().size(), 56);
}

TEST(TableRemove, RemoveFromRowClosesTheGapInOneColumn) {
    IntTable table("T", 1, 0, 1.0, false);
    for (unsigned r = 0; r < 4; ++r) {
        table.setCalValue(static_cast<int>(r + 1), r, 1);
        table.setCalValue(-1, r, 0);
    }
    table.setRowCount(4);
    table.removeValuesFromRow(1, 0, 0);
    EXPECT_EQ(table.getRowCount(), 3u);
    EXPECT_EQ(table.getCalValue(0, 1), 2);
    EXPECT_EQ(table.getCalValue(2, 1), 4);
    EXPECT_EQ(table.getCalValue(3, 1), 0);
    for (unsigned r = 0; r < 4; ++r)
        EXPECT_EQ(table.getCalValue(r, 0), -1) << "other columns stay";
    EXPECT_EQ(wordSum(table.getByteArrayData()), 0u);

    IntVector vector("T", 1, 0, 1.0, false);
    fillColumn(vector, {10, 20, 30, 40, 50});
    vector.removeValuesFromRow(0, 1, 2);
    EXPECT_EQ(vector.getRowCount(), 3u);
    EXPECT_EQ(vector.getCalValue(0, 0), 10);
    EXPECT_EQ(vector.getCalValue(1, 0), 40);
    EXPECT_EQ(vector.getCalValue(2, 0), 50);
    EXPECT_EQ(vector.getCalValue(3, 0), 0);
}

TEST(TableRemove, HugeCountsEndPromptlyInsideTheImage) {
    IntVector vector("T", 1, 0, 1.0, false);
    fillColumn(vector, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    vector.setRowCount(0xFFFFFFFFu);
    vector.removeValuesFromRow(0, 0, 0);
    // Rows 1..9 move down, the first row past the capacity brings a zero.
    EXPECT_EQ(vector.getRowCount(), 0xFFFFFFFEu);
    EXPECT_EQ(vector.getCalValue(0, 0), 2);
    EXPECT_EQ(vector.getCalValue(8, 0), 10);
    EXPECT_EQ(vector.getCalValue(9, 0), 0);
    EXPECT_EQ(vector.getByteArrayData().size(), 56);

    HwDatablockBaseTemplateIndex<int, int, 27, 20> indexed("T", 1, 0, 1.0, false);
    indexed.setIndex(77, 0);
    indexed.setCalValue(5, 26, 19);
    indexed.setColCount(0xFFFFFFFFu);
    indexed.removeValuesFromCol(26, 100, 0xFFFFFFFEu);
    EXPECT_EQ(indexed.getColCount(), 100u);
    EXPECT_EQ(indexed.getCalValue(26, 19), 5);
    EXPECT_EQ(indexed.getIndex(0), 77) << "the index column lies behind the value array";
}
