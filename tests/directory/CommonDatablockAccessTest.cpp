// Generic typed access: the walk over one or several tables, list format, queries and texts.
#include "SampleImages.h"

#include <CommonDatablockAccess.h>
#include <IHwVariantEeprom.h>

#include <gtest/gtest.h>
#include <map>
#include <memory>

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

TEST(CommonDatablockAccess, HostOrderWordsBorrowWhileGathered) {
    QByteArray image = pageImage();
    image[0] = 0x01;
    image[1] = static_cast<char>(0x80); // id 0x8001 in host order
    auto access = accessOf(image);
    EXPECT_EQ(access->getId(), 0x8000);    // 0x01 0x80 gathers to 0x0080, reversed 0x8000
    EXPECT_EQ(access->getRowCount(0), 2u); // the table words do not borrow

    image[15] = static_cast<char>(0xC8); // 200 rows: a low byte of 0x80 or more
    access = accessOf(image);
    EXPECT_EQ(access->getRowCount(0), 200u);
}

TEST(CommonDatablockAccess, EmptyOrMissingImagesGiveOneEmptyDescription) {
    QByteArray image = pageImage();
    image[2] = image[3] = 0; // block size 0: nothing is read
    auto access = accessOf(image);
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
