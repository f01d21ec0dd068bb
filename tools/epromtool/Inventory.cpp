// epromtool inventory: renders the library's inventory rows as text lines, CSV or JSON, one row
// at a time, then the summary.
#include "Inventory.h"

#include "Batch.h"
#include "CommandLine.h"
#include "Reports.h"

#include <ImageInventory.h>
#include <QJsonObject>
#include <QJsonValue>
#include <iostream>

namespace epromtool {

namespace {

// RFC 4180: a field with a comma, a quote, a line break or blanks at either end is quoted, its
// quotes doubled.
QString csvField(const QString& text) {
    const bool quote = text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"')) ||
                       text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r')) ||
                       text.startsWith(QLatin1Char(' ')) || text.endsWith(QLatin1Char(' '));
    if (!quote)
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

void csvLine(const QStringList& fields) {
    // Records end with CRLF, as spreadsheets expect.
    std::cout << fields.join(QLatin1Char(',')).toStdString() << "\r\n";
}

void csvRow(const Tupsim::InventoryRow& row) {
    QStringList fields;
    for (const QVariant& cell : Tupsim::inventoryCells(row))
        fields << csvField(cell.isNull() ? QString() : cell.toString());
    csvLine(fields);
}

QJsonObject jsonRow(const Tupsim::InventoryRow& row) {
    const QVector<Tupsim::InventoryColumn>& columns = Tupsim::inventoryColumns();
    const QVector<QVariant> cells = Tupsim::inventoryCells(row);
    QJsonObject object;
    for (int i = 0; i < columns.size(); ++i)
        object[QLatin1String(columns[i].key)] = QJsonValue::fromVariant(cells[i]);
    return object;
}

// "PATH: ok, 13 blocks, 1234.5678.02 SN 102345 ..." with what the image holds.
void textRow(const Tupsim::InventoryRow& row) {
    QStringList parts{QLatin1String(Tupsim::verdictName(row.verdict))};
    if (row.blocks >= 0)
        parts << (row.blocks == 1 ? QStringLiteral("1 block")
                                  : QStringLiteral("%1 blocks").arg(row.blocks));
    if (row.identified)
        parts << QStringLiteral("part number %1, SN %2, hardware code %3, made %4, name '%5'")
                     .arg(row.partNumber)
                     .arg(row.serialNumber)
                     .arg(row.hardwareCode)
                     .arg(row.productDate, row.name);
    else if (row.verdict != Tupsim::ImageVerdict::Unreadable)
        parts << QStringLiteral("no ident block");
    if (!row.lastServiceDate.isEmpty())
        parts << QStringLiteral("last service %1").arg(row.lastServiceDate);
    if (row.operatingHours >= 0)
        parts << QStringLiteral("%1 operating hours").arg(row.operatingHours);
    if (!row.reason.isEmpty())
        parts << row.reason;
    out(row.path + QStringLiteral(": ") + parts.join(QStringLiteral(", ")));
}

int exitCodeOf(Tupsim::ImageVerdict verdict) {
    switch (verdict) {
    case Tupsim::ImageVerdict::Ok:
        return ExitOk;
    case Tupsim::ImageVerdict::FailedChecks:
        // The worst of its checks' codes is a failed check.
        return epromtool::exitCodeOf(Tupsim::ResultCode::ChecksumFailed);
    case Tupsim::ImageVerdict::BrokenChain:
        return epromtool::exitCodeOf(Tupsim::ResultCode::ChainBroken);
    case Tupsim::ImageVerdict::Unreadable:
        break;
    }
    return epromtool::exitCodeOf(Tupsim::ResultCode::Unreadable);
}

} // namespace

int runInventory(const QStringList& arguments) {
    CommandLine line(QStringLiteral("inventory"),
                     QStringLiteral("One row per image: path, verdict, block count, the "
                                    "identification from the ident block (part number with "
                                    "variant, serial number, hardware code, product date, "
                                    "name), the last service date and the operating hours, the "
                                    "number of problems and the first of them."));
    line.addArgument(QStringLiteral("PATH"), QStringLiteral("An image, or with -r a directory."));
    addBatchArguments(line, QStringLiteral("PATH"));
    line.addOption({QStringLiteral("csv"),
                    QStringLiteral("Comma-separated values with a header row (RFC 4180).")});
    line.addJsonOption();
    line.addOffsetOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start, true))
        return *stop;
    const bool csv = line.isSet(QStringLiteral("csv"));
    if (csv && line.json())
        return line.usageError(QStringLiteral("--csv and --json exclude each other"));

    int code = ExitOk;
    const QStringList paths = imagePaths(line);
    const bool recursive = line.isSet(QStringLiteral("recursive"));
    if (line.json()) {
        JsonStream stream;
        const Tupsim::BatchTally tally = Tupsim::inventory::forEachRow(
            paths, recursive, start, [&](const Tupsim::InventoryRow& row) {
                code = worse(code, exitCodeOf(row.verdict));
                stream.add(jsonRow(row));
            });
        stream.finish(tally, code);
        return code;
    }
    if (csv) {
        QStringList header;
        for (const Tupsim::InventoryColumn& column : Tupsim::inventoryColumns())
            header << QLatin1String(column.key);
        csvLine(header);
    }
    const Tupsim::BatchTally tally = Tupsim::inventory::forEachRow(
        paths, recursive, start, [&](const Tupsim::InventoryRow& row) {
            code = worse(code, exitCodeOf(row.verdict));
            if (csv)
                csvRow(row);
            else
                textRow(row);
        });
    // CSV holds only its rows: the summary goes to standard error there.
    if (csv)
        std::cerr << "epromtool: " << tallyLine(tally).toStdString() << '\n';
    else
        out(tallyLine(tally));
    std::cout.flush();
    return code;
}

} // namespace epromtool
