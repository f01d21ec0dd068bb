// epromtool diff IMAGE_A IMAGE_B: block by block, what was added, removed or changed.
#include "BlockCatalogue.h"
#include "CommandLine.h"
#include "CommandSupport.h"
#include "Commands.h"
#include "Console.h"
#include "DiffReport.h"
#include "ExitCode.h"
#include "ImageReport.h"

namespace epromtool {

int runDiff(const QStringList& arguments) {
    CommandLine line(QStringLiteral("diff"),
                     QStringLiteral("Compares two images block by block: blocks added, removed "
                                    "or changed, with the changed header fields and the number "
                                    "of payload bytes that differ."));
    line.addArgument(QStringLiteral("IMAGE_A"), QStringLiteral("The first image."));
    line.addArgument(QStringLiteral("IMAGE_B"), QStringLiteral("The second image."));
    line.addJsonOption();
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;

    auto catalogue = makeBlockCatalogue();
    ImageReport a;
    ImageReport b;
    for (ImageReport* report : {&a, &b}) {
        if (!CommandSupport::load(*report, line.argument(report == &a ? 0 : 1), *catalogue))
            return ExitUnreadable;
        CommandSupport::complain(*report, report->problems());
    }
    const DiffReport diff(a, b);
    if (line.json())
        Console::out(diff.json());
    else
        Console::out(diff.text());
    return worse(a.exitCode(), b.exitCode());
}

} // namespace epromtool
