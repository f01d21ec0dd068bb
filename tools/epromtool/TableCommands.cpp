// `table` prints one calibration table with its frequency axis as text, CSV or JSON; `report`
// writes the HTML report of one image or of two side by side.
#include "TableCommands.h"

#include "CommandLine.h"
#include "HtmlReport.h"
#include "Reports.h"
#include "SafeWriter.h"
#include "TableText.h"

#include <EepromImage.h>
#include <ModuleReport.h>
#include <TableView.h>
#include <iostream>

using Tupsim::EepromImage;

namespace epromtool {

int runTable(const QStringList& arguments) {
    CommandLine line(QStringLiteral("table"),
                     QStringLiteral("Prints one calibration table of IMAGE with its frequency "
                                    "axis: as text with the frequencies as column heads, with "
                                    "--csv as CSV (first line the axis in Hz, then one line per "
                                    "row), with --json as JSON."));
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addIdOption();
    line.addIndexOption(QString());
    line.addOption({QStringLiteral("csv"), QStringLiteral("Comma-separated values.")});
    line.addOffsetOption();
    line.addJsonOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start))
        return *stop;
    quint16 id = 0;
    if (const Stop stop = line.requiredId(id))
        return *stop;
    if (line.json() && line.isSet(QStringLiteral("csv")))
        return line.usageError(QStringLiteral("--csv and --json exclude each other"));
    int occurrence = 1;
    if (const Stop stop = line.occurrence(occurrence))
        return *stop;

    const QString path = line.argument(0);
    EepromImage image;
    if (const Stop stop = loadImage(path, image, start))
        return *stop;
    complain(path, image.chainProblems());
    int index = image.find(id);
    for (int n = 1; n < occurrence && index >= 0; ++n)
        index = image.find(id, index + 1);
    if (index < 0) {
        error(occurrence == 1
                  ? QStringLiteral("%1: no block with id %2").arg(path).arg(id)
                  : QStringLiteral("%1: no block %2 with id %3").arg(path).arg(occurrence).arg(id));
        return exitCodeOf(Tupsim::ResultCode::UnknownBlock);
    }
    Tupsim::TableView view;
    if (!Tupsim::tableView::view(image, index, view)) {
        error(QStringLiteral("%1: block %2 (%3) is no calibration table")
                  .arg(path, QString::number(id), image.name(index)));
        return exitCodeOf(Tupsim::ResultCode::UnknownBlock);
    }
    if (line.json())
        out(tableJson(path, view));
    else
        out(line.isSet(QStringLiteral("csv")) ? tableCsv(view) : tableText(view));
    return exitCodeOf(image);
}

int runReport(const QStringList& arguments) {
    CommandLine line(QStringLiteral("report"),
                     QStringLiteral("Writes one self-contained HTML page about the module: the "
                                    "verdict and problems, the record fields, every calibration "
                                    "table as a plot against its frequency axis with its numbers, "
                                    "and the other blocks. With IMAGE_B both modules side by side: "
                                    "both curves in each plot, the cells and fields that differ "
                                    "marked."));
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addOptionalArguments(QStringLiteral("[IMAGE_B]"),
                              QStringLiteral("A second image to compare with."));
    line.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                    QStringLiteral("Write to FILE instead of standard output."),
                    QStringLiteral("FILE")});
    line.addOffsetOption();
    int start = 0;
    if (const Stop stop = line.parseImageCommand(arguments, start, true))
        return *stop;
    QStringList paths{line.argument(0)};
    paths << line.rest();
    if (paths.size() > 2)
        return line.usageError(QStringLiteral("unexpected argument '%1'").arg(paths.at(2)));

    EepromImage images[2];
    int code = ExitOk;
    for (int i = 0; i < paths.size(); ++i) {
        if (const Stop stop = loadImage(paths.at(i), images[i], start))
            return *stop;
        complain(paths.at(i), images[i].problems());
        code = worse(code, exitCodeOf(images[i]));
    }
    const Tupsim::ModuleReport report = paths.size() == 2
                                            ? Tupsim::moduleReport::compare(images[0], images[1])
                                            : Tupsim::moduleReport::build(images[0]);
    const QByteArray html = htmlReport(report, paths).toUtf8();
    if (!line.isSet(QStringLiteral("output"))) {
        std::cout.write(html.constData(), html.size());
        std::cout.flush();
        return code;
    }
    if (const Stop stop = writeOutput(line.value(QStringLiteral("output")), html))
        return *stop;
    return code;
}

} // namespace epromtool
