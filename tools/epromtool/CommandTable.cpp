// The table of commands and the dispatch from the command word to its runner.
#include "CommandTable.h"

#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"

#include <QCommandLineParser>

namespace epromtool {

const QVector<CommandEntry>& CommandTable::commands() {
    // A new command is one row here and one file with its runner.
    static const QVector<CommandEntry> table = {
        {"list", "one row per block: offset, id, name, size, checksum and CRC-32", runList},
        {"verify", "check every block and the chain; print only the problems", runVerify},
        {"show", "print one block (--id N), in its own form or in hexadecimal", runShow},
        {"diff", "compare two images block by block", runDiff},
        {"export", "write the blocks as an ASCII calibration file", runExport},
        {"import", "read the blocks back from an ASCII calibration file", runImport},
        {"sample", "write a demonstration image (-o FILE)", runSample},
    };
    return table;
}

namespace {

QString description() {
    QString text = QStringLiteral("Lists, checks, exports and imports the datablocks of a whole "
                                  "EEPROM image.\n\nCommands (epromtool COMMAND --help for "
                                  "more):\n");
    for (const CommandEntry& command : CommandTable::commands())
        text += QStringLiteral("  %1  %2\n")
                    .arg(QString::fromLatin1(command.name).leftJustified(7),
                         QLatin1String(command.summary));
    return text.trimmed();
}

} // namespace

int CommandTable::dispatch(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("The command to run."),
                                 QStringLiteral("COMMAND [ARGUMENTS...]"));
    // Everything behind the command word belongs to the command.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(arguments)) {
        Console::error(parser.errorText() + QStringLiteral(" (see 'epromtool --help')"));
        return ExitUsage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        Console::out(parser.helpText().trimmed() + QStringLiteral("\n\n") + exitCodeHelp());
        return ExitOk;
    }
    const QStringList positional = parser.positionalArguments();
    if (positional.isEmpty()) {
        Console::error(QStringLiteral("no command given (see 'epromtool --help')"));
        return ExitUsage;
    }
    for (const CommandEntry& command : commands())
        if (positional.first() == QLatin1String(command.name))
            return command.run(QStringList{arguments.value(0)} + positional.mid(1));
    Console::error(
        QStringLiteral("unknown command '%1' (see 'epromtool --help')").arg(positional.first()));
    return ExitUsage;
}

} // namespace epromtool
