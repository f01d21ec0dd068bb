// Table template instantiations: one of each kind has the size of its layout and a fresh header.
#include "TemplateTestSupport.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
template <class Block> void check(unsigned size) {
    SCOPED_TRACE(size);
    char name[] = "T";
    Block block(name, 4711, 3, 1.0, false);
    EXPECT_EQ(sizeof(typename Block::HwSDatablock), size);
    EXPECT_EQ(block.getBlockSize(), size);
    // Id plus instance and the size; no checksum is computed by the constructor.
    EXPECT_EQ(hex(block.getByteArrayData()),
              hex(freshImage(4714, static_cast<unsigned short>(size))));
    EXPECT_EQ(static_cast<void*>(block.getBlock()), static_cast<void*>(block.getData()));
}
} // namespace

TEST(TemplateInstantiations, EachKindHasTheSizeOfItsLayout) {
    check<HwDatablockBaseTemplate<char, double, 12, 1>>(28);
    check<HwDatablockBaseTemplate<double, double, 200, 1>>(1616);
    check<HwDatablockBaseTemplateIndex<int, int, 27, 20>>(2284);
    check<HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>>(15776);
    check<HwDatablockBaseTemplateWexW<float, double, 50, 7>>(1416);
    check<HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1>>(20);
    check<HwDatablockTemplate<MiscData<int, 50, 200>, int, double, 50, 200>>(40016);
    check<HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>, unsigned char,
                                             double, 1, 2048>>(2064);

    HwDatablockBaseTemplate<int, int, 4, 292> block("RFBO_EXT_CAL_VEC_DATA", 15841, 2, 0.5, true);
    EXPECT_EQ(hex(block.getByteArrayData().left(8)), "e3 3d 50 12 00 00 00 00"); // 15843, 4688
    EXPECT_EQ(block.getInstance(), 2);
    EXPECT_DOUBLE_EQ(block.getFactor(), 0.5);
    EXPECT_TRUE(block.getStopConversionOnError());
    // The id word is cut to 16 bits.
    HwDatablockBaseTemplate<int, int, 8, 1> wrapped("X", 65535, 2, 1.0, false);
    EXPECT_EQ(wrapped.getId(), 1u);
}
