// epromtool show IMAGE --id N: prints the blocks with that id, in their own form or as hex.
#include "BlockCatalogue.h"
#include "CommandLine.h"
#include "CommandSupport.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "HexForm.h"
#include "JsonReport.h"
#include "TextReport.h"

#include <iostream>

namespace epromtool {

int runShow(const QStringList& arguments) {
    CommandLine line(QStringLiteral("show"),
                     QStringLiteral("Prints every block of IMAGE with the given id."));
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addOption({QStringLiteral("id"),
                    QStringLiteral("The block id, decimal or 0x hexadecimal (required)."),
                    QStringLiteral("N")});
    line.addOption({QStringLiteral("hex"), QStringLiteral("Print the bytes as a hex dump.")});
    line.addJsonOption();
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;
    quint16 id = 0;
    if (!line.isSet(QStringLiteral("id")))
        return line.usageError(QStringLiteral("missing --id N"));
    if (!CommandLine::parseId(line.value(QStringLiteral("id")), id))
        return line.usageError(
            QStringLiteral("'%1' is not a block id").arg(line.value(QStringLiteral("id"))));

    auto catalogue = makeBlockCatalogue();
    ImageReport report;
    if (!CommandSupport::load(report, line.argument(0), *catalogue))
        return ExitUnreadable;
    QVector<BlockReport> chosen;
    for (const BlockReport& block : report.blocks())
        if (block.entry.id == id)
            chosen.append(block);
    CommandSupport::complain(report, report.chain().chainProblems);
    if (chosen.isEmpty()) {
        Console::error(QStringLiteral("%1: no block with id %2").arg(report.path()).arg(id));
        return ExitUnreadable;
    }

    if (line.json()) {
        Console::out(JsonReport::show(report, chosen));
        return report.exitCode();
    }
    for (int i = 0; i < chosen.size(); ++i) {
        if (i > 0)
            Console::out(QString());
        Console::out(TextReport::headline(chosen[i]));
        if (line.isSet(QStringLiteral("hex")))
            Console::out(HexForm::dump(chosen[i].entry.image));
        else
            catalogue->print(chosen[i].entry.image, std::cout);
    }
    std::cout.flush();
    return report.exitCode();
}

} // namespace epromtool
