// Full-scale block of the IF DAC: image, setter, import and text form.
#include "support/Blocks.h"

#include <HwDatablockDacIfFullScale.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(DacIfFullScale, SetterImportAndPrint) {
    ServiceRecorders services;
    HwDatablockDacIfFullScale block;
    EXPECT_EQ(hex(block.getByteArrayData()), "d4 30 0c 00 00 00 00 00 00 00 00 00");
    block.setFullScaleValue(-123456);
    EXPECT_EQ(hex(block.getByteArrayData().mid(8)), "c0 1d fe ff");
    EXPECT_EQ(block.getFullScaleValue(), -123456);
    EXPECT_TRUE(block.verifyChecksum());
    HwSDatablockDacIfFullScale record{12500, 12, 0, 0, 5};
    EXPECT_EQ(block.setBlock(&record), 1);
    expectRejected(services, 1040001, "   HwDatablockDacIfFullScale");
    EXPECT_EQ(block.getFullScaleValue(), -123456);
    record = sealed(HwSDatablockDacIfFullScale{12500, 12, 0, 0, -123456});
    ASSERT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(block.getByteArrayData(), recordBytes(record));
    EXPECT_EQ(printed(block), golden("calib/DacIfFullScale.txt"));

    block.resizeData(10); // the value no longer fits
    EXPECT_EQ(block.getFullScaleValue(), 0);
    const QByteArray shortImage = block.getByteArrayData();
    block.setFullScaleValue(1);
    EXPECT_EQ(block.getByteArrayData(), shortImage);
}
