// The inventory rows: an image's verdict and the identification read through the getters of its
// ident, service and statistics blocks.
#include "ImageInventory.h"

#include "HwDatablockIdent.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockStatistic.h"
#include "blocks/ident/FieldCodec.h"

#include <QDate>

namespace Tupsim {

namespace {

QString problemText(const ImageProblem& problem) {
    return hex16(static_cast<unsigned>(problem.offset)) + QStringLiteral(": ") + problem.text;
}

QString latin(const std::string& text) {
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

void readIdent(HwDatablockIdent& ident, InventoryRow& row) {
    row.partNumber = latin(records::partNumberText(ident.getPartNumber(), ident.getVariant()));
    row.serialNumber = ident.getSerialNumber();
    row.hardwareCode = ident.getHardwareCode();
    row.productDate = latin(records::packedDate::text(ident.getProductDate()));
    row.name = ident.getName();
    row.identified = true;
}

// Walks the blocks once: the first ident block, the latest service date, the statistics hours.
void readRecords(const EepromImage& image, InventoryRow& row) {
    bool hoursSeen = false;
    int latestService = -1; // packed dates sort as the dates do
    for (int i = 0; i < image.blockCount(); ++i) {
        const BlockKind kind = blockCatalogue::kindOf(image.block(i).id);
        if (kind == BlockKind::Identification && !row.identified) {
            std::unique_ptr<HwDatablock> block = image.makeBlock(i);
            auto* ident = dynamic_cast<HwDatablockIdent*>(block.get());
            // A block shorter than its record has no fields to read.
            if (ident && ident->getBlock()) {
                readIdent(*ident, row);
            }
        } else if (kind == BlockKind::Service) {
            std::unique_ptr<HwDatablock> block = image.makeBlock(i);
            auto* service = dynamic_cast<HwDatablockServiceData*>(block.get());
            if (!service || !service->getBlock())
                continue;
            const int date = service->getServiceDate();
            // An unused slot holds no date.
            if (date > latestService && QDate(static_cast<int>(service->getServiceDateYear()),
                                              static_cast<int>(service->getServiceDateMonth()),
                                              static_cast<int>(service->getServiceDateDay()))
                                            .isValid())
                latestService = date;
        } else if (kind == BlockKind::Statistic && !hoursSeen) {
            std::unique_ptr<HwDatablock> block = image.makeBlock(i);
            auto* statistic = dynamic_cast<HwDatablockStatistic*>(block.get());
            if (statistic && statistic->getBlock()) {
                row.operatingHours = statistic->getOpHours();
                hoursSeen = true;
            }
        }
    }
    if (latestService >= 0)
        row.lastServiceDate =
            latin(records::packedDate::text(static_cast<unsigned>(latestService)));
}

QVariant number(qint64 value) {
    return value < 0 ? QVariant() : QVariant(value);
}

QVariant text(const QString& value) {
    return value.isEmpty() ? QVariant() : QVariant(value);
}

} // namespace

const QVector<InventoryColumn>& inventoryColumns() {
    static const QVector<InventoryColumn> columns = {
        {"path", false},          {"verdict", false},     {"blocks", true},
        {"partNumber", false},    {"serialNumber", true}, {"hardwareCode", true},
        {"productDate", false},   {"name", false},        {"lastServiceDate", false},
        {"operatingHours", true}, {"problems", true},     {"reason", false}};
    return columns;
}

QVector<QVariant> inventoryCells(const InventoryRow& row) {
    // In the order of inventoryColumns().
    return {QVariant(row.path), QVariant(QString::fromLatin1(verdictName(row.verdict))),
            number(row.blocks), text(row.partNumber), number(row.serialNumber),
            number(row.hardwareCode), text(row.productDate),
            // A name may be empty and still be there.
            row.identified ? QVariant(row.name) : QVariant(), text(row.lastServiceDate),
            number(row.operatingHours), QVariant(static_cast<qint64>(row.problems)),
            text(row.reason)};
}

namespace inventory {

InventoryRow rowOf(const BatchItem& item) {
    InventoryRow row;
    row.path = item.path;
    row.verdict = verdictOf(item);
    if (!item.readable) {
        row.reason = item.reason;
        row.problems = 1;
        return row;
    }
    const EepromImage& image = item.image;
    const QVector<ImageProblem> problems = image.problems();
    row.problems = problems.size();
    // For a broken chain, what broke it; otherwise the first failed check.
    if (image.chainBroken())
        row.reason = problemText(image.chainProblems().first());
    else if (!problems.isEmpty())
        row.reason = problemText(problems.first());
    row.blocks = image.blockCount();
    readRecords(image, row);
    return row;
}

BatchTally forEachRow(const QStringList& paths, bool recursive, int chainStart,
                      const std::function<void(const InventoryRow&)>& visit) {
    return imageBatch::forEachImage(paths, recursive, chainStart,
                                    [&](const BatchItem& item) { visit(rowOf(item)); });
}

QVector<InventoryRow> rows(const QStringList& paths, bool recursive, int chainStart) {
    QVector<InventoryRow> result;
    forEachRow(paths, recursive, chainStart,
               [&result](const InventoryRow& row) { result.append(row); });
    return result;
}

} // namespace inventory
} // namespace Tupsim
