// The further calibration blocks kept as opaque images: every row of their list.
#include "support/Blocks.h"

#include <HwDatablockMbrdExtLevCalDataFreq_Enh.h> // each class also has a header of its own
#include <HwOpaqueCalibBlocks.h>

#include <QFileInfo>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

struct OpaqueRow {
    std::string name;
    unsigned id;
    std::function<std::unique_ptr<HwDatablock>()> make;
};

std::vector<OpaqueRow> listedRows() {
    return {
#define EPROM_OPAQUE_BLOCK(ClassName, firstId)                                                     \
    {#ClassName, firstId, [] { return std::unique_ptr<HwDatablock>(new ClassName); }},
#include <HwOpaqueCalibBlocks.def>
#undef EPROM_OPAQUE_BLOCK
    };
}

} // namespace

// Their first ids are checked against the directory's own registrations in its suite.
TEST(OpaqueCalibBlocks, ListNamesEveryClassWithAHeaderOfItsOwn) {
    const std::vector<OpaqueRow> rows = listedRows();
    ASSERT_EQ(rows.size(), 78u);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const QString header =
            QString(EPROM_SOURCE_DIR "/include/%1.h").arg(QString::fromStdString(rows[i].name));
        EXPECT_TRUE(QFileInfo(header).isFile()) << rows[i].name;
    }
}

TEST(OpaqueCalibBlocks, NewBlockIsAValidHeaderWithTheFirstId) {
    ServiceRecorders services;
    for (const OpaqueRow& row : listedRows()) {
        auto block = row.make();
        const unsigned short check = static_cast<unsigned short>(-(row.id + 8));
        EXPECT_EQ(block->getByteArrayData(), bytesOf({int(row.id & 0xFF), int(row.id >> 8), 8, 0,
                                                      check & 0xFF, check >> 8, 0, 0}))
            << row.name;
        EXPECT_TRUE(block->verifyChecksum()) << row.name;
        EXPECT_FALSE(block->getStopConversionOnError());
    }
    HwDatablockWEXDelay stopping(true);
    EXPECT_TRUE(stopping.getStopConversionOnError());
    EXPECT_EQ(hex(HwDatablockIqOp3RfmCalibData().getByteArrayData()), "3f 28 08 00 b9 d7 00 00");
}

TEST(OpaqueCalibBlocks, KeepTheImageAsGivenAndPrintItInHexForm) {
    ServiceRecorders services;
    for (const OpaqueRow& row : listedRows()) {
        // 70 bytes: the dump breaks after 61 of them.
        QByteArray image = freshImage(static_cast<unsigned short>(row.id), 70);
        for (int i = 8; i < image.size(); ++i)
            image[i] = static_cast<char>(i * 7);
        sealChecksum(image);

        auto block = row.make();
        EXPECT_TRUE(block->setData(image)) << row.name;
        EXPECT_EQ(block->getByteArrayData(), image) << row.name;
        EXPECT_EQ(printed(*block),
                  "\n" + image.left(61).toStdString() + "\n" + image.mid(61).toStdString() + "\n")
            << row.name;

        image[20] = static_cast<char>(image[20] + 1); // checksum now wrong: kept all the same
        EXPECT_FALSE(block->setData(image)) << row.name;
        EXPECT_EQ(block->getByteArrayData(), image) << row.name;
    }
}
