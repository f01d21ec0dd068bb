// epromtool export IMAGE: writes the blocks as an ASCII calibration file.
#include "BlockCatalogue.h"
#include "CommandLine.h"
#include "CommandSupport.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "ImageReport.h"
#include "SafeWriter.h"

#include <QSet>
#include <iostream>
#include <sstream>

namespace epromtool {

int runExport(const QStringList& arguments) {
    CommandLine line(QStringLiteral("export"),
                     QStringLiteral("Writes the blocks of IMAGE as an ASCII calibration file, "
                                    "each in the form of its own class."));
    line.addArgument(QStringLiteral("IMAGE"), QStringLiteral("The EEPROM image file."));
    line.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                    QStringLiteral("Write to FILE instead of standard output."),
                    QStringLiteral("FILE")});
    line.addOption({QStringLiteral("id"),
                    QStringLiteral("Export only blocks with this id; may be repeated."),
                    QStringLiteral("N")});
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;
    QSet<quint16> ids;
    for (const QString& text : line.values(QStringLiteral("id"))) {
        quint16 id = 0;
        if (!CommandLine::parseId(text, id))
            return line.usageError(QStringLiteral("'%1' is not a block id").arg(text));
        ids.insert(id);
    }

    auto catalogue = makeBlockCatalogue();
    ImageReport report;
    if (!CommandSupport::load(report, line.argument(0), *catalogue))
        return ExitUnreadable;
    if (CommandSupport::stopOnBrokenChain(report, QStringLiteral("exported")))
        return ExitUnreadable;
    QSet<quint16> missing = ids;
    std::ostringstream text;
    for (const BlockReport& block : report.blocks()) {
        if (!ids.isEmpty() && !ids.contains(block.entry.id))
            continue;
        missing.remove(block.entry.id);
        catalogue->print(block.entry.image, text);
    }
    if (!missing.isEmpty()) {
        for (quint16 id : missing)
            Console::error(QStringLiteral("%1: no block with id %2").arg(report.path()).arg(id));
        return ExitUnreadable;
    }

    const std::string content = text.str();
    if (!line.isSet(QStringLiteral("output"))) {
        std::cout << content;
        std::cout.flush();
        return report.exitCode();
    }
    QString error;
    if (!SafeWriter::write(line.value(QStringLiteral("output")),
                           QByteArray(content.data(), static_cast<int>(content.size())), false,
                           error)) {
        Console::error(error);
        return ExitWriteFailed;
    }
    return report.exitCode();
}

} // namespace epromtool
