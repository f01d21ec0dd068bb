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
    const char* name;
    unsigned id;
    std::function<std::unique_ptr<HwDatablock>()> make;
};

const OpaqueRow kRows[] = {
#define EPROM_OPAQUE_BLOCK(ClassName, firstId)                                                     \
    {#ClassName, firstId, [] { return std::unique_ptr<HwDatablock>(new ClassName); }},
#include <HwOpaqueCalibBlocks.def>
#undef EPROM_OPAQUE_BLOCK
};
} // namespace

// Their first ids are checked against the directory's own registrations in its suite.
TEST(OpaqueCalibBlocks, NewBlockIsAValidHeaderAndGivenImagesAreKeptAndDumped) {
    ServiceRecorders services;
    ASSERT_EQ(sizeof kRows / sizeof kRows[0], 78u);
    for (const OpaqueRow& row : kRows) {
        EXPECT_TRUE(QFileInfo(QString(EPROM_SOURCE_DIR "/include/%1.h").arg(row.name)).isFile())
            << row.name;
        auto block = row.make();
        QByteArray image = freshImage(static_cast<unsigned short>(row.id), 8);
        sealChecksum(image);
        EXPECT_EQ(hex(block->getByteArrayData()), hex(image)) << row.name;
        EXPECT_FALSE(block->getStopConversionOnError());

        // 70 bytes: the dump breaks after 61 of them.
        image = freshImage(static_cast<unsigned short>(row.id), 70);
        for (int i = 8; i < image.size(); ++i)
            image[i] = static_cast<char>(i * 7);
        sealChecksum(image);
        EXPECT_TRUE(block->setData(image)) << row.name;
        EXPECT_EQ(block->getByteArrayData(), image) << row.name;
        EXPECT_EQ(printed(*block),
                  "\n" + image.left(61).toStdString() + "\n" + image.mid(61).toStdString() + "\n")
            << row.name;
        image[20] = static_cast<char>(image[20] + 1); // checksum now wrong: kept all the same
        EXPECT_FALSE(block->setData(image)) << row.name;
        EXPECT_EQ(block->getByteArrayData(), image) << row.name;
    }
    HwDatablockWEXDelay stopping(true);
    EXPECT_TRUE(stopping.getStopConversionOnError());
    EXPECT_EQ(hex(HwDatablockIqOp3RfmCalibData().getByteArrayData()), "3f 28 08 00 b9 d7 00 00");
}
