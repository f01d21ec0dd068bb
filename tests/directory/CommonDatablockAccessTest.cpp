// Generic typed access: the walk over tables and lists, queries and texts; write() and the image
// it builds, read back alike by the walk, the block, the checksums and the byte-order pass;
// hostile images end the walk without harm.
#include "SampleImages.h"

#include <CommonDatablockAccess.h>
#include <IHwVariantEeprom.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// A store that keeps what it is given.
class RecordingStore : public IHwVariantEeprom {
public:
    ~RecordingStore() override { clear(); }
    unsigned int getNumberOfBlocks() const override { return unsigned(blocks.size()); }
    HwDatablock* getBlock(unsigned int index) const override {
        return hasBlock(index) ? blocks.at(index).get() : nullptr;
    }
    bool hasBlock(unsigned int index) const override { return blocks.count(index) != 0; }
    HwDatablock* takeBlock(unsigned int index) override {
        HwDatablock* block = hasBlock(index) ? blocks[index].release() : nullptr;
        blocks.erase(index);
        return block;
    }
    void clear() override { blocks.clear(); }
    void storeBlock(unsigned int index, HwDatablock* block) override { blocks[index].reset(block); }
    std::map<unsigned int, std::unique_ptr<HwDatablock>> blocks;
};

// Two tables with every kind of identifier run and a column that takes no bytes.
std::vector<HwSBlockDescription> sampleTables() {
    HwSBlockDescription a;
    a.rowCount = 3;
    a.colCount = 4;
    a.rowIdType = STRING;
    a.colIdType = CHAR5;
    a.colTypes = {INT16, NONE, STRING, FIX32D4};
    a.rowIds = QByteArray("f1\0\0long id\0", 12);
    a.colIds = QByteArray("A\0\0\0\0BB\0\0\0CCC\0\0DDDDD", 20);
    a.values = {{bytesOf({1, 2}), bytesOf({3, 4}), bytesOf({5, 6})},
                {},
                {QByteArray("x"), QByteArray(), QByteArray("yz")},
                {bytesOf({1, 0, 0, 0}), bytesOf({0xFF, 0xFF, 0xFF, 0xFF}), bytesOf({9, 8, 7, 6})}};
    HwSBlockDescription b;
    b.rowCount = 2;
    b.colCount = 2;
    b.rowIdType = UINT8;
    b.colTypes = {DOUBLE, CHAR};
    b.rowIds = bytesOf({1, 2});
    b.values = {{bytesOf({0, 0, 0, 0, 0, 0, 0xF8, 0x3F}), bytesOf({1, 2, 3, 4, 5, 6, 7, 8})},
                {QByteArray("a"), QByteArray("b")}};
    return {a, b};
}

QByteArray written(const std::vector<HwSBlockDescription>& tables, unsigned short id,
                   unsigned short updateIndex) {
    CommonDatablockAccess builder(nullptr, nullptr, false);
    for (const auto& table : tables)
        builder.addBlock(table);
    return builder.write(id, updateIndex);
}

} // namespace

TEST(CommonDatablockAccess, WalksHeaderAndTable) {
    auto access = accessOf(pageImage());
    EXPECT_EQ(access->getId(), 20001);
    EXPECT_FLOAT_EQ(access->getUpdateIndex(), 1.05f);
    EXPECT_EQ(access->getBlockCount(), 1);
    EXPECT_EQ(access->getRowCount(0), 2u);
    EXPECT_EQ(access->getColCount(0), 3u);
    EXPECT_EQ(access->getRowIdType(0), FIX16D1);
    EXPECT_EQ(access->getColumnIdType(0), UINT16);
    EXPECT_EQ(access->getDataTypeList(0), (QList<ETypeId>{INT32, CHAR5, FIX32D4}));
    EXPECT_EQ(access->getDataType(1, 0), CHAR5);
    EXPECT_EQ(access->getRowIdStringList(0), (QStringList{"1.5", "-1.0"}));
    EXPECT_EQ(access->getColIdStringList(0), (QStringList{"10", "20", "30"}));
    EXPECT_EQ(access->getStringColumn(1, 0), (QStringList{"abc", "vwxyz"}));
    const QVector<QStringList> rows = access->getDataInStringVector(0);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0], (QStringList{"42", "abc", "1.2345"}));
    EXPECT_EQ(rows[1], (QStringList{"-1", "vwxyz", "-1.2345"}));
    EXPECT_EQ(access->getBlockDescription(0)->values[2][1], bytesOf({0xC7, 0xCF, 0xFF, 0xFF}));

    // Out of range: the trailing description is the empty table in progress.
    EXPECT_EQ(access->getRowIdType(5), NONE);
    EXPECT_EQ(access->getColumnIdType(5), NONE);
    EXPECT_EQ(access->getDataType(3, 0), NONE);
    EXPECT_EQ(access->getDataType(0, 9), NONE);
    EXPECT_EQ(access->getRowCount(1), 0u);
    EXPECT_EQ(access->getRowCount(9), 0u);
    EXPECT_TRUE(access->getStringColumn(3, 0).isEmpty());
    EXPECT_TRUE(access->getDataInStringVector(9).isEmpty());
    EXPECT_EQ(access->getBlockDescription(2), nullptr);
}

TEST(CommonDatablockAccess, HostOrderWordsBorrowAndEmptyImagesGiveOneEmptyDescription) {
    QByteArray image = pageImage();
    image[0] = 0x01;
    image[1] = static_cast<char>(0x80); // id 0x8001 in host order
    auto access = accessOf(image);
    EXPECT_EQ(access->getId(), 0x8000);    // 0x01 0x80 gathers to 0x0080, reversed 0x8000
    EXPECT_EQ(access->getRowCount(0), 2u); // the table words do not borrow

    image[15] = static_cast<char>(0xC8); // 200 rows: a low byte of 0x80 or more
    access = accessOf(image);
    EXPECT_EQ(access->getRowCount(0), 200u);

    image[2] = image[3] = 0; // block size 0: nothing is read
    access = accessOf(image);
    EXPECT_EQ(access->getBlockCount(), 0);
    EXPECT_EQ(access->getId(), 0);
    EXPECT_EQ(access->getColCount(0), 0u);

    CommonDatablockAccess none(nullptr, nullptr, true);
    EXPECT_EQ(none.getBlockCount(), 0);
    CommonDatablockAccess unparsed(nullptr, nullptr, false);
    EXPECT_EQ(unparsed.getBlockCount(), 65535); // no description at all
}

TEST(CommonDatablockAccess, ListFormatReadsFourByteEntries) {
    const QByteArray image = bytesOf({
        0x22, 0x4E, 0x16, 0x00, 0,    0,    0x00, 0x07, // id 20002, size 22, checksum, byte 7 kept
        0x01, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, // entries 1, 4294967295,
        0x10, 0x27, 0x00, 0x00, 0xAB, 0xCD,             //   10000, an incomplete one
    });
    auto access = accessOf(image, true);
    EXPECT_TRUE(access->isListBlockFormat());
    EXPECT_EQ(access->getBlockCount(), 0); // the list is never complete: one description
    EXPECT_EQ(access->getRowCount(0), 3u);
    EXPECT_EQ(access->getColCount(0), 1u);
    EXPECT_EQ(access->getRowIdType(0), UINT32);
    EXPECT_EQ(access->getColumnIdType(0), UINT32);
    EXPECT_EQ(access->getDataTypeList(0), QList<ETypeId>{UINT32});
    EXPECT_EQ(access->getBlockDescription(0)->rowIds, QByteArray(12, '\0'));
    EXPECT_EQ(access->getStringColumn(0, 0), (QStringList{"1", "4294967295", "10000"}));
    EXPECT_FLOAT_EQ(access->getUpdateIndex(), 0.0f); // no long header in a list
}

TEST(CommonDatablockAccess, OverlongTextsAreNotKept) {
    QByteArray image = bytesOf({
        0x24, 0x4E, 0x00,   0x00, 0,    0,    0, 0, 0, 0, 0, 0, // id 20004, size set below, CRC-32
        0x00, 0x00, 0x00,   0x03, 0x00, 0x01,                   // update index, 3 rows, 1 column
        NONE, NONE, STRING, 0x00, 0x00, 0x00,                   // no identifiers, padding to 24
    });
    image.append(QByteArray(28, 'k')).append('\0'); // 29 bytes with its zero: kept
    image.append(QByteArray(29, 'l')).append('\0'); // 30 bytes: not kept
    image.append("end").append('\0');
    image[2] = static_cast<char>(image.size());
    auto access = accessOf(image);
    ASSERT_EQ(access->getBlockCount(), 1);
    EXPECT_EQ(access->getStringColumn(0, 0), (QStringList{QString(28, 'k'), QString(), "end"}));
}

TEST(CommonDatablockAccess, WriteVariantBockHandsTheBlockToTheStore) {
    CommonDatablockAccess alone(nullptr, nullptr, false);
    EXPECT_TRUE(alone.writeVariantBock(3, pageImage()));
    EXPECT_EQ(alone.getVariantEepromPtr(), nullptr);

    RecordingStore store;
    CommonDatablockAccess access(nullptr, &store, false);
    EXPECT_EQ(access.getVariantEepromPtr(), &store);
    QByteArray image = pageImage();
    sealChecksum(image);
    EXPECT_TRUE(access.writeVariantBock(5, image));
    ASSERT_TRUE(store.hasBlock(5));
    HwDatablock* block = store.getBlock(5);
    EXPECT_EQ(block->getByteArrayData(), image);
    EXPECT_EQ(block->getDataFormatTyp(), HwDataFormatReference);
    EXPECT_TRUE(block->getStopConversionOnError());
    EXPECT_TRUE(access.writeVariantBock(5, bytesOf({0, 0, 8, 0, 0, 0, 0, 0}))); // replaces
    EXPECT_EQ(store.getNumberOfBlocks(), 1u);
    EXPECT_EQ(store.getBlock(5)->getBlockSize(), 8);
}

TEST(WriteRoundTrip, HeaderChecksumsAndWalkAgree) {
    const std::vector<HwSBlockDescription> tables = sampleTables();
    const QByteArray image = written(tables, 20010, 250);
    ASSERT_FALSE(image.isEmpty());
    EXPECT_EQ(image.size() % 4, 0);
    EXPECT_EQ(hex(image.left(4)), "2a 4e " + hex(image.mid(2, 2))); // id 20010 in host order
    EXPECT_EQ(static_cast<unsigned char>(image[2]) | static_cast<unsigned char>(image[3]) << 8,
              image.size());
    EXPECT_EQ(hex(image.mid(6, 2)), "00 00");              // long header
    EXPECT_EQ(hex(image.mid(12, 6)), "00 fa 00 03 00 04"); // update index, rows, columns
    EXPECT_EQ(hex(image.mid(18, 6)), "19 15 04 00 19 13"); // id types, column types
    EXPECT_EQ(crcField(image), crcOf(image));
    EXPECT_TRUE(sumsToZero(image));

    auto access = accessOf(image);
    EXPECT_EQ(access->getId(), 20010);
    EXPECT_FLOAT_EQ(access->getUpdateIndex(), 2.5f);
    ASSERT_EQ(access->getBlockCount(), 2);
    EXPECT_EQ(*access->getBlockDescription(0), tables[0]);
    EXPECT_EQ(*access->getBlockDescription(1), tables[1]);
    EXPECT_EQ(access->getRowIdStringList(0), (QStringList{"f1", "", "long id"}));
    EXPECT_EQ(access->getColIdStringList(0), (QStringList{"A", "BB", "CCC", "DDDDD"}));
    EXPECT_EQ(access->write(20010, 250), image);
}

TEST(WriteRoundTrip, WriteNormalisesWhatItIsGiven) {
    // The second column's type is missing (NONE), the row ids too short (zero-filled), the value
    // too long and a row missing.
    const HwSBlockDescription loose{
        2, 2, UINT16, NONE, {INT32}, bytesOf({7}), {}, {{bytesOf({1, 2, 3, 4, 5})}}};
    const QByteArray image = written({loose}, 20011, 0);
    EXPECT_EQ(hex(image.mid(14)), "00 02 00 02 03 00 06 00 00 00 " // shape, types, padding
                                  "07 00 00 00 "                   // row ids 7 and 0
                                  "01 02 03 04 00 00 00 00");      // the values cut and filled

    HwSBlockDescription huge;
    huge.rowCount = 70000;
    EXPECT_TRUE(written({huge}, 20012, 0).isEmpty());
    huge.rowCount = 20000;
    huge.colCount = 1;
    huge.colTypes = {INT32};
    EXPECT_TRUE(written({huge}, 20012, 0).isEmpty()); // 80000 bytes of values
    HwSBlockDescription wide;
    wide.colCount = 10000;
    wide.colIdType = DOUBLE;
    EXPECT_TRUE(written({wide}, 20012, 0).isEmpty()); // 80000 bytes of column ids

    const QByteArray bare = written({}, 20013, 1); // the header, padded
    EXPECT_EQ(hex(bare.left(4)), "2d 4e 10 00");
    EXPECT_EQ(hex(bare.mid(12)), "00 01 00 00");
}

TEST(WriteRoundTrip, EveryElementTypeThroughTheByteOrderPass) {
    for (quint32 type = 1; type <= 27; ++type) {
        HwSBlockDescription table;
        table.rowCount = 2;
        table.colCount = 2;
        table.rowIdType = type;
        table.colTypes = {type, CHAR5};
        const bool text = type == STRING;
        const int width = text ? 3 : int(CommonDatablockAccess::getSizeInBytes(ETypeId(type)));
        for (int r = 0; r < 2; ++r) {
            QByteArray value;
            for (int i = 0; i < width; ++i)
                value.append(static_cast<char>(text ? 'a' + i + r : 0x10 * (r + 1) + i + 1));
            table.rowIds.append(value).append(text ? QByteArray(1, '\0') : QByteArray());
            table.values.resize(2);
            if (width > 0)
                table.values[0].push_back(value);
            table.values[1].push_back(QByteArray("t") + char('0' + r) + "xyz");
        }
        const QByteArray image = written({table}, 20100, 7);
        auto before = accessOf(image);
        ASSERT_EQ(before->getBlockCount(), 1) << type;
        ASSERT_EQ(*before->getBlockDescription(0), table) << type;

        HwDatablock2Edition block;
        ASSERT_TRUE(block.setData(image)) << type;
        block.swapDataTo(HwDataFormatConverted, 20100, &block);
        ASSERT_EQ(block.getDataFormatTyp(), HwDataFormatConverted) << type;
        const QByteArray converted = block.getByteArrayData();
        EXPECT_EQ(converted.left(20), image.left(20)) << type; // the header keeps its order
        EXPECT_TRUE(block.verifyChecksum()) << type;           // checked in the reference form
        EXPECT_EQ(block.computeChecksum32(), crcField(image)) << type;

        // The walk finds every element where the pass turned it.
        auto after = accessOf(converted);
        ASSERT_EQ(after->getBlockCount(), 1) << type;
        const HwSBlockDescription& turned = *after->getBlockDescription(0);
        const bool reversible = width > 1 && !text && (type < CHAR5 || type > CHAR20);
        for (int r = 0; r < 2 && width > 0; ++r) {
            QByteArray expected = table.values[0][r];
            if (reversible)
                std::reverse(expected.begin(), expected.end());
            EXPECT_EQ(turned.values[0][r], expected) << type;
        }
        EXPECT_EQ(turned.values[1], table.values[1]) << type; // CHAR5 texts untouched

        block.swapDataTo(HwDataFormatReference, 20100, &block);
        EXPECT_EQ(block.getByteArrayData(), image) << type;
    }
}

TEST(WriteRoundTrip, HostileCountsAreBoundedByTheImage) {
    // id 20000, size 100, long header, 65535 rows by 65535 columns, all types INT32
    QByteArray image = freshImage(20000, 100);
    image.replace(14, 86, QByteArray(4, '\xFF') + QByteArray(82, static_cast<char>(INT32)));
    auto access = accessOf(image);
    EXPECT_EQ(access->getBlockCount(), 0);
    const HwSBlockDescription* table = access->getBlockDescription(0);
    EXPECT_EQ(table->rowCount, 65535u);
    EXPECT_EQ(table->colCount, 65535u);
    EXPECT_LE(table->values.size(), 100u);
    EXPECT_LE(table->colTypes.size(), 100u);
    EXPECT_TRUE(access->getDataInStringVector(0).isEmpty());
    EXPECT_LE(access->getStringColumn(0, 0).size(), 0);

    HwDatablock2Edition block;
    load(block, image);
    std::ostringstream page;
    block.printDebugPageComplete(page, HwSDataBlockCfg());
    EXPECT_LT(page.str().size(), 2000u);
    block.swapBlock(HwDataFormatConverted, 0, nullptr);
    EXPECT_EQ(block.getByteArrayData(), image);

    // A size field far beyond the image: only the image is walked.
    image[2] = image[3] = static_cast<char>(0xFF);
    access = accessOf(image.left(40));
    EXPECT_EQ(access->getBlockCount(), 0);
}

TEST(WriteRoundTrip, TruncatedImagesEndTheWalk) {
    const QByteArray image = written(sampleTables(), 20010, 250);
    // Table 0: shape and types 14-23, row ids 24-35, column ids 36-55, values 56-79.
    const int firstTableEnd = 80;
    int previous = 0;
    for (int n = 0; n <= image.size(); ++n) {
        auto access = accessOf(image.left(n)); // the size field still claims the whole image
        const int complete = access->getBlockCount();
        EXPECT_GE(complete, previous) << n;
        EXPECT_EQ(complete >= 1, n >= firstTableEnd) << n;
        previous = complete;
        HwDatablock2Edition block;
        load(block, image.left(n));
        std::ostringstream page;
        block.printDebugPageDetail(page, HwSDataBlockCfg());
    }
    EXPECT_EQ(previous, 2);
}

TEST(WriteRoundTrip, UnknownTypesTakeNoBytesInWalkAndPass) {
    const QByteArray image = bytesOf({
        0x30, 0x4E,  0x1C, 0x00,  0, 0, 0, 0, // id 20016, size 28
        0,    0,     0,    0,     0, 0, 0, 1, // CRC-32, update index, 1 row,
        0x00, 0x04,  77,   NONE,              // 4 columns, unknown row id type: no identifiers
        99,   UINT8, 200,  INT16,             // column types
        0x05, 0x01,  0x02, 0x00,              // 5, 513, trailing
    });
    auto access = accessOf(image);
    ASSERT_EQ(access->getBlockCount(), 1);
    EXPECT_EQ(access->getDataInStringVector(0).value(0), (QStringList{"", "5", "", "513"}));

    HwDatablock block(false);
    load(block, image);
    block.swapBlock(HwDataFormatConverted, 0, nullptr);
    EXPECT_EQ(hex(block.getByteArrayData().mid(24)), "05 02 01 00");

    // Rows of nothing complete at once; the next table is read.
    const QByteArray empty = bytesOf({
        0x31, 0x4E, 0x24,   0x00, 0, 0, 0,    0,    // id 20017, size 36
        0,    0,    0,      0,    0, 0, 0xFF, 0xFF, // CRC-32, update index, 65535 rows,
        0x00, 0x02, NONE,   NONE,                   // 2 columns, no identifiers
        NONE, 0x63, 0x00,   0x00,                   // columns without bytes, padding
        0x00, 0x01, 0x00,   0x01,                   // next table: 1 row, 1 column,
        NONE, NONE, UINT16, 0x00,                   // no identifiers, UINT16, padding
        0x34, 0x12, 0x00,   0x00,                   // 4660, trailing
    });
    access = accessOf(empty);
    ASSERT_EQ(access->getBlockCount(), 2);
    EXPECT_TRUE(access->getDataInStringVector(0).isEmpty());
    EXPECT_EQ(access->getStringColumn(0, 1), QStringList{"4660"});
}
