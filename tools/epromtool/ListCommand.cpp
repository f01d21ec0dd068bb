// epromtool list IMAGE: one row per block in chain order and a closing summary.
#include "BlockCatalogue.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "JsonReport.h"
#include "TextReport.h"

namespace epromtool {

int runList(const QStringList& arguments) {
    CommandLine line(QStringLiteral("list"),
                     QStringLiteral("Lists the blocks of IMAGE in chain order: offset, id, name, "
                                    "size, 16-bit checksum and, for ids 20000 and above, CRC-32."));
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addJsonOption();
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;

    auto catalogue = makeBlockCatalogue();
    ImageReport report;
    if (!report.load(line.argument(0), *catalogue)) {
        Console::error(report.readError());
        return ExitUnreadable;
    }
    if (line.json())
        Console::out(JsonReport::listing(report));
    else
        Console::out(TextReport::listing(report));
    return report.exitCode();
}

} // namespace epromtool
