// The inventory of a set of module images: one row per image with its verdict and the
// identification its record blocks hold.
#pragma once

#include "EepromImage.h"
#include "EpromDatablockGlobal.h"
#include "ImageBatch.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>

namespace Tupsim {

// One image's row. A field the image does not hold stays empty (a number at -1).
struct InventoryRow {
    QString path;
    ImageVerdict verdict = ImageVerdict::Unreadable;
    QString reason;   // the first problem with its offset, or why the file could not be read
    int problems = 0; // failed checks and chain problems
    int blocks = -1;  // blocks read, the end block included; -1 when unreadable
    // From the first identification block (IDENT_2 ... IDENT_10), where `identified`.
    bool identified = false;
    QString partNumber; // "1234.5678.02": number, sub-number, variant
    qint64 serialNumber = -1;
    int hardwareCode = -1;
    QString productDate; // "2021-06-15"
    QString name;
    // The latest valid date of the service blocks (SERVICE_200 ...).
    QString lastServiceDate;
    // From the statistics block (STATISTICS_300).
    qint64 operatingHours = -1;
};

// The columns, in order: the CSV header, the JSON keys and the Python dict keys.
struct InventoryColumn {
    const char* key;
    bool numeric;
};
EPROMDATABLOCK_EXPORT const QVector<InventoryColumn>& inventoryColumns();
// The row's cells in column order: QString or qint64, a null QVariant where the image holds none.
EPROMDATABLOCK_EXPORT QVector<QVariant> inventoryCells(const InventoryRow& row);

namespace inventory {

// The row of one batch item.
EPROMDATABLOCK_EXPORT InventoryRow rowOf(const BatchItem& item);
// One row per image that `paths` name (see imageBatch::walk), handed on one at a time.
EPROMDATABLOCK_EXPORT BatchTally forEachRow(const QStringList& paths, bool recursive,
                                            int chainStart,
                                            const std::function<void(const InventoryRow&)>& visit);
// All rows at once.
EPROMDATABLOCK_EXPORT QVector<InventoryRow> rows(const QStringList& paths, bool recursive = false,
                                                 int chainStart = 0);

} // namespace inventory
} // namespace Tupsim
