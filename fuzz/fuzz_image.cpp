// Fuzz target: the whole-image layer. The input is an image and a calibration text (a two-byte
// length says where the image ends): open, checks and problems, export, import planning and
// applying, the diff, the inventory row and the module report. An import never leaves a block
// that the checks call bad, and an image whose blocks all pass reads its own export back unchanged.
#include "FuzzSupport.h"

#include <EepromImage.h>
#include <ImageDiff.h>
#include <ImageExport.h>
#include <ImageImport.h>
#include <ImageInventory.h>
#include <ModuleReport.h>

using namespace Tupsim;

namespace {

void inspect(const EepromImage& image) {
    image.problems();
    image.ok();
    image.endOffset();
    image.bytesFree();
    for (int i = 0; i < image.blockCount(); ++i) {
        image.kindOf(i);
        image.name(i);
        FUZZ_CHECK(image.blockBytes(i).size() == image.block(i).size || image.block(i).isEnd);
    }
    BatchItem item;
    item.readable = true;
    item.image = image;
    const InventoryRow row = inventory::rowOf(item);
    FUZZ_CHECK(row.blocks == image.blockCount());
    FUZZ_CHECK(inventoryCells(row).size() == inventoryColumns().size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::quietHost();
    fuzz::Input input(data, size);
    const unsigned imageLength = input.word();
    const QByteArray bytes = input.take(imageLength);
    const QByteArray text = input.rest();

    const EepromImage image = EepromImage::fromBytes(bytes);
    inspect(image);
    const std::string exported = exportImage(image);
    if (image.blockCount() > 0)
        exportBlock(image, 0);

    const ImportPlan plan = planImport(image, text);
    plan.changedCount();
    for (const ImportedBlock& block : plan.blocks)
        FUZZ_CHECK(block.complaints.size() <= 6);
    EepromImage imported = image;
    if (applyPlan(imported, plan).ok()) {
        inspect(imported);
        // No replaced block may fail the checks a stored block goes through.
        for (int i = 0; i < imported.blockCount(); ++i)
            if (plan.replace.contains(i))
                FUZZ_CHECK(imported.block(i).ok());
        if (image.ok())
            FUZZ_CHECK(imported.ok());
        diffImages(image, imported);
    }

    // The image reads its own export back without a change.
    if (image.ok()) {
        const ImportPlan back =
            planImport(image, QByteArray(exported.data(), static_cast<int>(exported.size())));
        // A refused read-back (e.g. a table with rows but no columns, whose printout lacks
        // its row labels) changes nothing; what reads back must not change a block.
        FUZZ_CHECK(!back.ok() || back.changedCount() == 0);
    }

    // The text taken as a second image.
    const EepromImage second = EepromImage::fromBytes(text);
    diffImages(image, second);

    // A report of both: every drawn line has one point per cell, an axis one point per column.
    const ModuleReport report = moduleReport::compare(image, second);
    for (const ReportTable& table : report.tables) {
        FUZZ_CHECK(table.differs.size() == static_cast<std::size_t>(table.rows) * table.cols);
        for (int side = 0; side < 2; ++side) {
            if (!table.present[side])
                continue;
            const TableView& view = table.view[side];
            std::size_t points = 0;
            for (const PlotLine& line : view.lines())
                points += line.x.size() == line.y.size() ? line.y.size() : 0;
            FUZZ_CHECK(points == view.content.values.size());
            FUZZ_CHECK(!view.axis.present() || view.axis.hz.size() == view.content.shownCols());
        }
    }
    return 0;
}
