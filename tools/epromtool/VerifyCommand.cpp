// epromtool verify IMAGE: checks every block and the chain, printing only what is wrong.
#include "BlockCatalogue.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "JsonReport.h"
#include "TextReport.h"

namespace epromtool {

int runVerify(const QStringList& arguments) {
    CommandLine line(QStringLiteral("verify"),
                     QStringLiteral("Checks the chain of IMAGE and every block's checksum and "
                                    "CRC-32; prints the problems and one summary line."));
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
        Console::out(JsonReport::verification(report));
    else
        Console::out(TextReport::verification(report));
    return report.exitCode();
}

} // namespace epromtool
