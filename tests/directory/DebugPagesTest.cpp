// Debug pages of self-describing blocks against their golden texts.
#include "SampleImages.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

HwSDataBlockCfg sampleCfg() {
    HwSDataBlockCfg cfg;
    cfg.blockName = QStringLiteral("FREQ_RESPONSE");
    cfg.date = QStringLiteral("2019-04-01");
    cfg.sector = 3;
    cfg.address = 0x1A40;
    cfg.columnDescriptions = QStringLiteral("Count;Label;Gain correction");
    return cfg;
}

} // namespace

TEST(DebugPages, PrintTheBlockAsGolden) {
    HwDatablock2Edition block;
    load(block, pageImage());
    std::ostringstream summary, detail, complete, viaPrint;
    block.printDebugPageHeading(summary, true);
    block.printDebugPageSummary(summary, sampleCfg());
    block.printDebugPageHeading(detail, false);
    block.printDebugPageDetail(detail, sampleCfg());
    block.printDebugPageComplete(complete, sampleCfg());
    block.printToStream2Edition(viaPrint, sampleCfg());
    EXPECT_EQ(summary.str(), golden("directory/summary.txt"));
    EXPECT_EQ(detail.str(), golden("directory/detail.txt"));
    EXPECT_EQ(complete.str(), golden("directory/complete.txt"));
    EXPECT_EQ(viaPrint.str(), complete.str());
}
