// Steps that several commands share.
#include "CommandSupport.h"

#include "BlockCatalogue.h"
#include "CommandLine.h"
#include "Console.h"
#include "ExitCode.h"

namespace epromtool {

bool CommandSupport::load(ImageReport& report, const QString& path, BlockCatalogue& catalogue) {
    if (report.load(path, catalogue))
        return true;
    Console::error(report.readError());
    return false;
}

void CommandSupport::complain(const ImageReport& report, const QVector<Problem>& problems) {
    for (const Problem& problem : problems)
        Console::error(QStringLiteral("%1: %2").arg(report.path(), problem.line()));
}

bool CommandSupport::stopOnBrokenChain(const ImageReport& report, const QString& done) {
    complain(report, report.problems());
    if (!report.chain().broken())
        return false;
    Console::error(QStringLiteral("%1: the chain is broken, nothing %2").arg(report.path(), done));
    return true;
}

int CommandSupport::runReport(const QStringList& arguments, const QString& command,
                              const QString& description, TextForm text, JsonForm json) {
    CommandLine line(command, description);
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addJsonOption();
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;

    auto catalogue = makeBlockCatalogue();
    ImageReport report;
    if (!load(report, line.argument(0), *catalogue))
        return ExitUnreadable;
    if (line.json())
        Console::out(json(report));
    else
        Console::out(text(report));
    return report.exitCode();
}

} // namespace epromtool
