// The table templates: layout, scaling, capacity bounds, search, the remove operations, and
// loading images with setBlock, swapBlock and readbin.
#include "TemplateTestSupport.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <limits>
#include <tuple>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
template <class Raw, class Value, int Rows, int Cols>
using Base = HwDatablockBaseTemplate<Raw, Value, Rows, Cols>;
using IntTable = Base<int, int, 4, 10>; // 176 bytes
using AlcData = IntTable;
using AlcFreq = Base<unsigned int, double, 10, 1>; // 56 bytes
using IntVector = Base<int, int, 10, 1>;
using Indexed = HwDatablockBaseTemplateIndex<int, int, 27, 20>;

template <class Block> void fillColumn(Block& block, std::initializer_list<int> values) {
    unsigned row = 0;
    for (int v : values)
        block.setCalValue(v, row++, 0);
    block.setRowCount(static_cast<unsigned>(values.size()));
}

// A fresh block of the kind: id plus instance and the size of its layout, no checksum yet.
template <class Block> void expectLayout(unsigned size) {
    char name[] = "T";
    Block block(name, 4711, 3, 1.0, false);
    EXPECT_EQ(sizeof(typename Block::HwSDatablock), size);
    EXPECT_EQ(hex(block.getByteArrayData()),
              hex(freshImage(4714, static_cast<unsigned short>(size))));
    EXPECT_EQ(static_cast<void*>(block.getBlock()), static_cast<void*>(block.getData()));
}

// Stores `raw` in the first cell of a fresh block with `factor` and returns what the getter gives.
template <class Block, class Raw> auto scaled(double factor, Raw raw) {
    char name[] = "T";
    Block block(name, 1, 0, factor, false);
    block.setCalValue(raw, 0, 0);
    return block.getCalValue(0, 0);
}

// Two rows of three columns with cell (1, 2) 103 and the last cell of the capacity -1.
QByteArray alcImage(unsigned id = 15731) {
    QByteArray image = tableImage(176, id, 2, 3);
    putAt<int>(image, 16 + 12 * 4, 103);
    putAt<int>(image, 16 + 39 * 4, -1);
    sealChecksum(image);
    return image;
}

QByteArray freqImage(int size, unsigned rows, int offset, unsigned value) {
    QByteArray image = tableImage(size, 15730, rows, 1);
    putAt<unsigned>(image, offset, value);
    sealChecksum(image);
    return image;
}

// readbin past the id word of `bytes`, as the caller reads it.
void readFrom(std::istringstream& in, const QByteArray& bytes, AlcFreq& block) {
    in.str(bytes.toStdString());
    in.clear();
    in.seekg(2);
    block.readbin(in, block);
}
} // namespace

TEST(TableLayout, OneInstantiationOfEachKindAndTheScalingOfEachValueType) {
    expectLayout<Base<char, double, 12, 1>>(28);
    expectLayout<Indexed>(2284);
    expectLayout<HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>>(15776);
    expectLayout<HwDatablockBaseTemplateWexW<float, double, 50, 7>>(1416);
    expectLayout<HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1>>(20);
    expectLayout<HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>, unsigned char,
                                                    double, 1, 2048>>(2064);
    Base<int, int, 4, 292> block("RFBO_EXT_CAL_VEC_DATA", 15841, 2, 0.5, true);
    EXPECT_EQ(hex(block.getByteArrayData().left(8)), "e3 3d 50 12 00 00 00 00"); // 15843, 4688
    EXPECT_EQ(block.getInstance(), 2);
    EXPECT_DOUBLE_EQ(block.getFactor(), 0.5);
    EXPECT_TRUE(block.getStopConversionOnError());
    Base<int, int, 8, 1> wrapped("X", 65535, 2, 1.0, false);
    EXPECT_EQ(wrapped.getId(), 1u) << "the id word is cut to 16 bits";

    using Ints = Base<int, int, 8, 1>;
    using Shorts = Base<short, short, 6, 1>;
    EXPECT_EQ(scaled<Ints>(0.01, 12345), 123);
    EXPECT_EQ(scaled<Ints>(0.01, -12345), -123);
    EXPECT_EQ(scaled<Shorts>(2.5, short(-3)), -7);
    EXPECT_EQ(scaled<Shorts>(2.5, short(30000)), 32767); // saturated, never undefined
    EXPECT_EQ((scaled<Base<unsigned int, unsigned int, 50, 1>>(1.0, 4000000000u)), 4000000000u);
    EXPECT_EQ((scaled<Base<unsigned int, double, 10, 1>>(100, 100000u)), 1e7);
    EXPECT_DOUBLE_EQ((scaled<Base<int, double, 2, 128>>(0.01, -1234)), -12.34);
    EXPECT_EQ((scaled<Base<char, double, 12, 1>>(1.0, char(-5))), -5.0);
    EXPECT_EQ((scaled<Base<unsigned short, double, 64, 1>>(0.5, 65535)), 32767.5);
    EXPECT_EQ((scaled<Base<float, float, 50, 4>>(0.5, 3.0f)), 1.5f);
    // Floats are widened before the factor applies: the float's own value comes out.
    EXPECT_EQ((scaled<HwDatablockBaseTemplateWexW<float, double, 50, 7>>(1.0, 0.1f)),
              static_cast<double>(0.1f));
}

TEST(TableCapacity, SettersAndTheSearchStayInsideTheCapacity) {
    Indexed block("T", 15843, 0, 1.0, false);
    block.setCalValue(0x01020304, 1, 2);
    block.setCalValue(11, 26, 19); // last cell of the capacity
    block.setIndex(7, 0);
    block.setIndex(-2, 26);
    block.setRowCount(30); // the counts do not widen the capacity
    block.setColCount(25);
    const QByteArray image = block.getByteArrayData();
    EXPECT_EQ(hex(image.mid(16 + (20 + 2) * 4, 4)), "04 03 02 01");
    EXPECT_EQ(hex(image.mid(2172, 12)), "0b 00 00 00 07 00 00 00 00 00 00 00"); // index behind
    EXPECT_EQ(hex(image.mid(2176 + 26 * 4, 4)), "fe ff ff ff");
    EXPECT_EQ(block.getIndex(26), -2);
    EXPECT_EQ(block.getRowCount(), 30u);
    EXPECT_TRUE(sumsToZero(image));
    EXPECT_EQ(block.getCalValue(27, 0), 0);
    EXPECT_EQ(block.getCalValue(0, 20), 0);
    EXPECT_EQ(block.getIndex(27), 0);
    block.setCalValue(5, 27, 0);
    block.setCalValue(5, 0, 20);
    block.setCalValue(5, 0xFFFFFFFFu, 0xFFFFFFFFu);
    block.setIndex(9, 27); // past the image
    EXPECT_EQ(block.getByteArrayData(), image);

    // A prototype of the block directory keeps only its header: reads 0, setters do nothing.
    block.resizeData(8);
    const QByteArray header = block.getByteArrayData();
    block.setRowCount(3);
    block.setColCount(3);
    block.setCalValue(1, 0, 0);
    block.setIndex(1, 0);
    block.removeValuesFromCol(0, 0, 0);
    block.removeValuesFromRow(0, 0, 0);
    EXPECT_EQ(block.getByteArrayData(), header);
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(block.getCalValue(1, 2), 0);
    EXPECT_EQ(block.getIndex(0), 0);
    bool found = false;
    EXPECT_EQ(block.findFirstValueInCol(0, 0, found, Indexed::HwRelEqual), 1u);
    EXPECT_EQ(printed(block), "ID:  T\nCOUNT:  0*0\n\n");

    IntVector vector("T", 1, 0, 1.0, false);
    fillColumn(vector, {5, 10, 10, 20});
    // Value, operator, the row returned (1-based, 0 when nothing matches) and whether found.
    const std::tuple<int, int, unsigned, bool> cases[] = {
        {10, IntVector::HwRelEqual, 2, true},        {5, IntVector::HwRelEqual, 1, true},
        {7, IntVector::HwRelEqual, 0, false},        {10, IntVector::HwRelGreater, 3, true},
        {10, IntVector::HwRelLess, 0, true},         {10, IntVector::HwRelGreaterEqual, 2, true},
        {11, IntVector::HwRelGreaterEqual, 3, true}, {9, IntVector::HwRelLessEqual, 0, true},
        {4, IntVector::HwRelLessEqual, 0, false},    {10, 5, 0, false}};
    for (const auto& [value, op, row, wasFound] : cases) {
        found = !wasFound;
        const auto relation = static_cast<IntVector::THwERelationOperator>(op);
        EXPECT_EQ(vector.findFirstValueInCol(value, 0, found, relation), row) << value << " " << op;
        EXPECT_EQ(found, wasFound) << value << " op " << op;
    }
    vector.setRowCount(0); // the first row is examined all the same
    EXPECT_EQ(vector.findFirstValueInCol(5, 0, found, IntVector::HwRelEqual), 1u);
    EXPECT_EQ(vector.findFirstValueInCol(10, 0, found, IntVector::HwRelEqual), 0u);
    EXPECT_FALSE(found);
    // Rows past the capacity read 0 and match like any other row; so does a column past it.
    fillColumn(vector, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    EXPECT_EQ(vector.findFirstValueInCol(0, 0, found, IntVector::HwRelEqual), 0u);
    vector.setRowCount(0xFFFFFFFFu);
    EXPECT_EQ(vector.findFirstValueInCol(0, 0, found, IntVector::HwRelEqual), 11u);
    EXPECT_TRUE(found);
    EXPECT_EQ(vector.findFirstValueInCol(1, 0, found, IntVector::HwRelGreater), 1u);
    EXPECT_EQ(vector.findFirstValueInCol(0, 1, found, IntVector::HwRelEqual), 1u);

    using Doubles = Base<double, double, 50, 1>;
    Doubles doubles("T", 1, 0, 1.0, false);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    doubles.setCalValue(nan, 0, 0);
    doubles.setCalValue(2.5, 1, 0);
    doubles.setRowCount(2);
    EXPECT_EQ(doubles.findFirstValueInCol(nan, 0, found, Doubles::HwRelEqual), 0u);
    EXPECT_FALSE(found) << "NaN never matches";
    EXPECT_EQ(doubles.findFirstValueInCol(2.5, 0, found, Doubles::HwRelEqual), 2u);
    EXPECT_EQ(doubles.findFirstValueInCol(2.0, 0, found, Doubles::HwRelGreater), 1u);
}

TEST(TableRemove, RemoveFromColAndRowCloseTheGap) {
    Base<int, int, 2, 128> wide("T", 1, 0, 1.0, false);
    for (int c = 0; c < 3; ++c)
        wide.setCalValue(c + 1, 0, c);
    wide.setColCount(3);
    wide.removeValuesFromCol(0, 1, 1);
    // Kept 2 is not below the row capacity 2: nothing is zeroed, the old cell stays.
    EXPECT_EQ(hex(wide.getByteArrayData().mid(8, 20)),
              "00 00 00 00 02 00 00 00 01 00 00 00 03 00 00 00 03 00 00 00");
    EXPECT_TRUE(sumsToZero(wide.getByteArrayData()));
    wide.removeValuesFromCol(0, 1, 1); // two used columns: one kept, cell (0, 1) zeroed
    EXPECT_EQ(hex(wide.getByteArrayData().mid(12, 16)),
              "01 00 00 00 01 00 00 00 00 00 00 00 03 00 00 00");
    // With fewer rows than columns the zero fill stops at the row capacity.
    IntTable table("T", 1, 0, 1.0, false);
    for (int c = 0; c < 6; ++c)
        table.setCalValue(c + 1, 1, c);
    table.setColCount(6);
    table.removeValuesFromCol(1, 0, 4);
    EXPECT_EQ(table.getColCount(), 1u);
    EXPECT_EQ(hex(table.getByteArrayData().mid(16 + 40, 24)),
              "06 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 05 00 00 00 06 00 00 00");
    EXPECT_TRUE(sumsToZero(table.getByteArrayData()));
    // One column but ten rows of capacity: the fill runs over the following rows' cells.
    IntVector vector("T", 1, 0, 1.0, false);
    fillColumn(vector, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    vector.setColCount(1);
    vector.removeValuesFromCol(0, 0, 0);
    EXPECT_EQ(vector.getColCount(), 0u);
    EXPECT_EQ(vector.getByteArrayData().mid(16), QByteArray(40, '\0'));
    // Huge counts end promptly inside the image; the index column lies behind the values.
    Indexed indexed("T", 1, 0, 1.0, false);
    indexed.setIndex(77, 0);
    indexed.setCalValue(5, 26, 19);
    indexed.setColCount(0xFFFFFFFFu);
    indexed.removeValuesFromCol(26, 100, 0xFFFFFFFEu);
    EXPECT_EQ(indexed.getColCount(), 100u);
    EXPECT_EQ(indexed.getCalValue(26, 19), 5);
    EXPECT_EQ(indexed.getIndex(0), 77);

    // removeValuesFromRow closes the gap in one column.
    IntTable rows("T", 1, 0, 1.0, false);
    for (unsigned r = 0; r < 4; ++r) {
        rows.setCalValue(static_cast<int>(r + 1), r, 1);
        rows.setCalValue(-1, r, 0);
    }
    rows.setRowCount(4);
    rows.removeValuesFromRow(1, 0, 0);
    EXPECT_EQ(rows.getRowCount(), 3u);
    for (unsigned r = 0; r < 4; ++r) {
        EXPECT_EQ(rows.getCalValue(r, 1), r < 3 ? int(r) + 2 : 0) << r;
        EXPECT_EQ(rows.getCalValue(r, 0), -1) << "other columns stay";
    }
    EXPECT_TRUE(sumsToZero(rows.getByteArrayData()));
    IntVector column("T", 1, 0, 1.0, false);
    fillColumn(column, {10, 20, 30, 40, 50});
    column.removeValuesFromRow(0, 1, 2);
    EXPECT_EQ(column.getRowCount(), 3u);
    EXPECT_EQ(hex(column.getByteArrayData().mid(16, 16)),
              "0a 00 00 00 28 00 00 00 32 00 00 00 00 00 00 00");
    // Huge counts: rows 1..9 move down, the first row past the capacity brings a zero.
    fillColumn(column, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    column.setRowCount(0xFFFFFFFFu);
    column.removeValuesFromRow(0, 0, 0);
    EXPECT_EQ(column.getRowCount(), 0xFFFFFFFEu);
    EXPECT_EQ(hex(column.getByteArrayData().mid(48, 8)), "0a 00 00 00 00 00 00 00");
    EXPECT_EQ(column.getCalValue(0, 0), 2);
    EXPECT_EQ(column.getByteArrayData().size(), 56);
}

TEST(TableSetBlock, HeaderIsRebuiltIndexDescriptorsAndVariants) {
    ServiceRecorders services;
    AlcData block("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    QByteArray image = alcImage();
    putAt<unsigned short>(image, 2, 100); // a size word of its own and a non-zero alignment
    putAt<unsigned short>(image, 6, 4);
    putAt<unsigned>(image, 8, 9); // counts above the capacity are kept as given
    putAt<unsigned>(image, 12, 70000);
    sealChecksum(image);
    block.resizeData(8); // as a prototype of the block directory is kept
    ASSERT_EQ(block.setBlock(record<AlcData>(image)), 0);
    const QByteArray loaded = block.getByteArrayData();
    EXPECT_EQ(hex(loaded.left(8)), "73 3d b0 00 " + hex(image.mid(4, 2)) + " 00 00");
    EXPECT_EQ(loaded.mid(8), image.mid(8));
    EXPECT_FALSE(block.verifyChecksum()) << "the image's own checksum no longer fits";

    image = alcImage(15799); // swapBlock copies without the check
    putAt<unsigned short>(image, 4, static_cast<unsigned short>(word(image, 4) + 1));
    block.swapBlock(record<AlcData>(image));
    EXPECT_EQ(block.getByteArrayData(), image);
    EXPECT_EQ(block.getCalValue(3, 9), -1);
    EXPECT_TRUE(services.errors.signalled.empty());

    Indexed indexed("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1.0, false);
    QByteArray indexImage = tableImage(2284, 15843, 1, 1);
    putAt<int>(indexImage, 16, 5);
    putAt<int>(indexImage, 2176, -10); // index of row 0
    putAt<int>(indexImage, 2280, 33);  // index of row 26
    sealChecksum(indexImage);
    ASSERT_EQ(indexed.setBlock(record<Indexed>(indexImage)), 0);
    EXPECT_EQ(indexed.getByteArrayData(), indexImage);
    EXPECT_EQ(indexed.getIndex(26), 33);

    using Extended = HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>;
    Extended extended("EXT_CAL_USER_DATA_A", 14805, 0, 1.0, false);
    QByteArray withText = tableImage(15776, 14805, 1, 2, 168);
    withText.replace(8, 16, "XXXXXXXXXXXXXXXX");
    withText.replace(8 + 9 * 16, 5, "LAST_");
    putAt<short>(withText, 176, -2); // cell (0, 0)
    sealChecksum(withText);
    ASSERT_EQ(extended.setBlock(record<Extended>(withText)), 0);
    EXPECT_EQ(extended.getByteArrayData(), withText);
    EXPECT_EQ(extended.getCalValue(0, 0), -2);

    // Only the given characters are replaced; descriptors are appended to the text.
    std::string text = "AB";
    extended.setDescriptor(0, text);
    std::string got = ">";
    extended.getDescriptor(0, got);
    extended.getDescriptor(9, got);
    EXPECT_EQ(got, ">ABXXXXXXXXXXXXXXLAST_" + std::string(11, '\0'));
    std::string longer = "0123456789abcdefTAIL";
    extended.setDescriptor(1, longer);
    extended.setDescriptor(10, longer); // past the descriptors: nothing
    extended.setDescriptor(-1, longer);
    got = "keep";
    extended.getDescriptor(10, got);
    extended.getDescriptor(-1, got);
    EXPECT_EQ(got, "keep");
    const QByteArray now = extended.getByteArrayData();
    EXPECT_EQ(now.mid(24, 16), QByteArray("0123456789abcdef"));
    EXPECT_EQ(now.mid(40), withText.mid(40));
    EXPECT_TRUE(sumsToZero(now));

    using WexW = HwDatablockBaseTemplateWexW<float, double, 50, 7>;
    char name[] = "IQ_IMBALANCE";
    WexW wexw(name, 15606, 0, 1.0, false);
    QByteArray wexImage = tableImage(1416, 15606, 1, 1);
    putAt<float>(wexImage, 16, 1.25f);
    putAt<unsigned short>(wexImage, 4, 0x1234); // wrong on purpose
    EXPECT_EQ(wexw.setBlock(record<WexW>(wexImage)), 0);
    EXPECT_TRUE(services.errors.signalled.empty());
    EXPECT_EQ(wexw.getCalValue(0, 0), 1.25);
    EXPECT_TRUE(wexw.verifyChecksum());

    char other[] = "OTHER";
    WexW assigned(other, 1, 1, 2.0, true);
    assigned = wexw;
    EXPECT_EQ(assigned.getByteArrayData(), wexw.getByteArrayData());
    EXPECT_EQ(assigned.getFactor(), 1.0);
    EXPECT_EQ(assigned.getInstance(), 0);
    EXPECT_EQ(printed(assigned), printed(wexw)); // the name came along
    EXPECT_EQ(WexW(wexw).getByteArrayData(), wexw.getByteArrayData());

    using Counter = HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>,
                                                       unsigned char, double, 1, 2048>;
    Counter counter("PYM_MWIF_SATT_COUNTER", 11304, 0, 1.0, false);
    QByteArray counted = tableImage(2064, 11304, 1, 3);
    putAt<unsigned short>(counted, 4, 0x1234);
    counted[16] = static_cast<char>(200);
    EXPECT_EQ(counter.setBlock(record<Counter>(counted)), 0);
    EXPECT_EQ(counter.getByteArrayData(), counted);
    EXPECT_EQ(counter.getCalValue(0, 0), 200.0);
    counter.setCalValue(7, 0, 2047);
    counter.setRowCount(5);
    counter.removeValuesFromCol(0, 0, 0);
    EXPECT_EQ(counter.getChecksum(), 0x1234);
    EXPECT_EQ(static_cast<unsigned char>(counter.getByteArrayData()[16 + 2047]), 7);
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(TableReadbin, ReadsTheBlockBehindItsIdWordAsLongAsItsSizeWordSays) {
    ServiceRecorders services;
    AlcData reader("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    AlcData target("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    const QByteArray first = alcImage();
    const QByteArray second = alcImage(15732);
    std::istringstream in(("xy" + first + second + "z").toStdString());
    in.seekg(4);
    reader.readbin(in, target);
    EXPECT_EQ(target.getByteArrayData(), first);
    EXPECT_EQ(in.tellg(), std::streampos(2 + 176));
    in.seekg(2, std::ios::cur);
    reader.readbin(in, target);
    EXPECT_EQ(target.getByteArrayData(), second);
    EXPECT_EQ(in.get(), 'z');
    EXPECT_EQ(reader.getRowCount(), 0u) << "the reader itself stays as it was";

    AlcFreq block("RFBO_ALC_FREQ", 15730, 0, 100, false);
    // Fewer bytes than the block: padded with zeros, the block keeps its own size.
    const QByteArray shortImage = freqImage(20, 1, 16, 12345);
    readFrom(in, shortImage + "rest", block);
    QByteArray padded = shortImage + QByteArray(36, '\0');
    putAt<unsigned short>(padded, 2, 56);
    EXPECT_EQ(block.getByteArrayData(), padded);
    EXPECT_EQ(in.get(), 'r');
    // More bytes than the block: all are consumed.
    readFrom(in, freqImage(60, 2, 20, 7) + "!", block);
    EXPECT_EQ(block.getByteArrayData().size(), 56);
    EXPECT_EQ(block.getCalValue(1, 0), 700.0);
    EXPECT_EQ(in.get(), '!');
    // A stream that ends early fills nothing past what was read.
    const QByteArray cut = freqImage(56, 3, 16, 1);
    readFrom(in, cut.left(24), block);
    EXPECT_EQ(block.getByteArrayData(), cut);
    EXPECT_TRUE(services.errors.signalled.empty());

    // Nothing to read or a bad checksum leaves the target alone.
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("\x38"), tableImage(56, 15730, 3, 1)}) {
        in.str(bytes.toStdString());
        in.clear();
        if (bytes.size() > 2)
            in.seekg(2);
        block.readbin(in, block);
        EXPECT_EQ(block.getByteArrayData(), cut) << bytes.size();
    }
    // Nor does a stream that can not go back to the id word.
    std::string unseekable = freqImage(56, 3, 16, 9).mid(2).toStdString();
    Unseekable buffer(unseekable);
    std::istream noSeek(&buffer);
    block.readbin(noSeek, block);
    EXPECT_EQ(block.getByteArrayData(), cut);
    ASSERT_EQ(services.errors.signalled.size(), 1u);
    EXPECT_EQ(services.errors.signalled[0].second, QString("15730"));
}
