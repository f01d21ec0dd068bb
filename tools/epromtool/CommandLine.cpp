// The command line of epromtool: one parser per command, and the table of commands.
#include "CommandLine.h"

#include "Commands.h"
#include "Inventory.h"
#include "Reports.h"
#include "TableCommands.h"

#include <QCoreApplication>
#include <QVector>
#include <limits>

namespace epromtool {

namespace {

struct CommandEntry {
    const char* name;
    const char* summary;
    int (*run)(const QStringList& arguments);
};

// A new command is one row here and its runner in Commands.cpp.
const CommandEntry kCommands[] = {
    {"list", "one row per block: offset, id, name, size, checksum and CRC-32", runList},
    {"verify", "check every block and the chain; print only the problems", runVerify},
    {"show", "print one block (--id N), in its own form or in hexadecimal", runShow},
    {"diff", "compare two images block by block", runDiff},
    {"export", "write the blocks as an ASCII calibration file", runExport},
    {"import", "read the blocks back from an ASCII calibration file", runImport},
    {"set", "set named fields of a record block (--id N FIELD=VALUE...)", runSet},
    {"fix", "recompute failing checksums and CRC-32s", runFix},
    {"inventory", "one row per image: verdict, part and serial number, service (CSV, JSON)",
     runInventory},
    {"write", "put an image onto a device or file, only the changed pages", runWrite},
    {"table", "print one calibration table (--id N) with its axis, as text, CSV or JSON", runTable},
    {"report", "write an HTML report of one image, or of two side by side", runReport},
    {"sample", "write a demonstration image (-o FILE)", runSample},
};

QString exitCodeHelp() {
    return QStringLiteral(
        "Exit codes:\n"
        "  0   all good\n"
        "  1   a checksum or CRC-32 failed\n"
        "  2   an image or file could not be read, the chain is broken, or a block,\n"
        "      field or value was refused\n"
        "  3   the output could not be written\n"
        "  64  usage error");
}

QString description() {
    QString text = QStringLiteral(
        "Lists, checks, exports, imports, edits and repairs the "
        "datablocks of a whole EEPROM image.\n\nCommands (epromtool COMMAND --help for "
        "more):\n");
    for (const CommandEntry& command : kCommands)
        text += QStringLiteral("  %1  %2\n")
                    .arg(QString::fromLatin1(command.name).leftJustified(9),
                         QLatin1String(command.summary));
    return text.trimmed();
}

} // namespace

CommandLine::CommandLine(const QString& name, const QString& description) : command(name) {
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    // The command word itself leads the usage line.
    parser.addPositionalArgument(name, QStringLiteral("This command."), name);
}

void CommandLine::addArgument(const QString& name, const QString& description) {
    parser.addPositionalArgument(name, description);
    required << name;
}

void CommandLine::addOptionalArguments(const QString& syntax, const QString& description) {
    parser.addPositionalArgument(syntax, description, syntax);
}

void CommandLine::addOption(const QCommandLineOption& option) {
    parser.addOption(option);
}

void CommandLine::addJsonOption() {
    parser.addOption({QStringLiteral("json"), QStringLiteral("Machine-readable output (JSON).")});
}

void CommandLine::addOffsetOption() {
    parser.addOption({QStringLiteral("offset"),
                      QStringLiteral("The chain starts at byte N of the file, decimal or 0x "
                                     "hexadecimal (default 0)."),
                      QStringLiteral("N")});
}

Stop CommandLine::chainStart(int& start) const {
    start = 0;
    if (!parser.isSet(QStringLiteral("offset")))
        return std::nullopt;
    const QString text = parser.value(QStringLiteral("offset"));
    bool ok = false;
    const bool isHex = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const qulonglong value = isHex ? text.mid(2).toULongLong(&ok, 16) : text.toULongLong(&ok, 10);
    if (!ok || value > static_cast<qulonglong>(std::numeric_limits<int>::max()))
        return usageError(QStringLiteral("'%1' is not an offset").arg(text));
    start = static_cast<int>(value);
    return std::nullopt;
}

void CommandLine::addWriteOptions(const QString& output) {
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      QStringLiteral("Write the new image to FILE instead of %1.").arg(output),
                      QStringLiteral("FILE")});
    addDeviceWriteOptions();
}

void CommandLine::addDeviceWriteOptions() {
    parser.addOption({QStringLiteral("dry-run"),
                      QStringLiteral("Report (for a device: the pages that would be written), "
                                     "but write nothing.")});
    parser.addOption({QStringLiteral("no-backup"),
                      QStringLiteral("Keep no backup of the previous content (FILE.bak for a "
                                     "file, a timestamped copy for a device).")});
    parser.addOption({QStringLiteral("in-place"),
                      QStringLiteral("Write the target in place, only the changed pages, as a "
                                     "device is (block and character devices and sysfs files "
                                     "always are).")});
    parser.addOption({QStringLiteral("page-size"),
                      QStringLiteral("The device's write unit in bytes (default 32)."),
                      QStringLiteral("N")});
    parser.addOption({QStringLiteral("backup-dir"),
                      QStringLiteral("Keep the backup in DIR, named from the target and the time "
                                     "(default: FILE.bak beside a file, the current directory "
                                     "for a device)."),
                      QStringLiteral("DIR")});
}

Stop CommandLine::parse(const QStringList& arguments, bool takesRest) {
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        out(parser.helpText().trimmed() + QStringLiteral("\n\n") + exitCodeHelp());
        return ExitOk;
    }
    const int given = parser.positionalArguments().size();
    if (given < required.size())
        return usageError(
            QStringLiteral("missing %1").arg(required.mid(given).join(QLatin1Char(' '))));
    if (given > required.size() && !takesRest)
        return usageError(QStringLiteral("unexpected argument '%1'")
                              .arg(parser.positionalArguments().at(required.size())));
    if (parser.optionNames().contains(QStringLiteral("page-size"))) {
        bool ok = false;
        const int size = parser.value(QStringLiteral("page-size")).toInt(&ok, 10);
        if (!ok || size < 1 || size > 65536)
            return usageError(QStringLiteral("'%1' is not a page size from 1 to 65536")
                                  .arg(parser.value(QStringLiteral("page-size"))));
    }
    return std::nullopt;
}

QString CommandLine::argument(int index) const {
    return parser.positionalArguments().value(index);
}

int CommandLine::usageError(const QString& text) const {
    error(QStringLiteral("%1: %2 (see 'epromtool %1 --help')").arg(command, text));
    return ExitUsage;
}

void CommandLine::addIdOption() {
    parser.addOption({QStringLiteral("id"),
                      QStringLiteral("The block id, decimal or 0x hexadecimal (required)."),
                      QStringLiteral("N")});
}

void CommandLine::addIndexOption(const QString& what) {
    const QString help =
        QStringLiteral("the K-th block with that id, counting from 1 (default 1).");
    parser.addOption(
        {QStringLiteral("index"),
         what.isEmpty() ? QLatin1Char('T') + help.mid(1) : what + QLatin1Char(' ') + help,
         QStringLiteral("K")});
}

Stop CommandLine::occurrence(int& occurrence) const {
    occurrence = 1;
    if (!isSet(QStringLiteral("index")))
        return std::nullopt;
    bool ok = false;
    occurrence = value(QStringLiteral("index")).toInt(&ok, 10);
    if (!ok || occurrence < 1)
        return usageError(QStringLiteral("'%1' is not a block number from 1 on")
                              .arg(value(QStringLiteral("index"))));
    return std::nullopt;
}

Stop CommandLine::parseImageCommand(const QStringList& arguments, int& start, bool takesRest) {
    const Stop stop = parse(arguments, takesRest);
    return stop ? stop : chainStart(start);
}

Stop CommandLine::requiredId(quint16& id) const {
    if (!isSet(QStringLiteral("id")))
        return usageError(QStringLiteral("missing --id N"));
    if (!parseId(value(QStringLiteral("id")), id))
        return usageError(
            QStringLiteral("'%1' is not a block id").arg(value(QStringLiteral("id"))));
    return std::nullopt;
}

bool CommandLine::parseId(const QString& text, quint16& id) {
    bool ok = false;
    // Decimal unless marked as hexadecimal: a leading zero does not mean octal here.
    const bool isHex = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const uint value = isHex ? text.mid(2).toUInt(&ok, 16) : text.toUInt(&ok, 10);
    if (!ok || value > 0xFFFF)
        return false;
    id = static_cast<quint16>(value);
    return true;
}

int dispatch(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("The command to run."),
                                 QStringLiteral("COMMAND [ARGUMENTS...]"));
    // Everything behind the command word belongs to the command.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(arguments)) {
        error(parser.errorText() + QStringLiteral(" (see 'epromtool --help')"));
        return ExitUsage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        out(parser.helpText().trimmed() + QStringLiteral("\n\n") + exitCodeHelp());
        return ExitOk;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        out(QStringLiteral("epromtool ") + QCoreApplication::applicationVersion());
        return ExitOk;
    }
    const QStringList positional = parser.positionalArguments();
    if (positional.isEmpty()) {
        error(QStringLiteral("no command given (see 'epromtool --help')"));
        return ExitUsage;
    }
    for (const CommandEntry& command : kCommands)
        if (positional.first() == QLatin1String(command.name))
            return command.run(QStringList{arguments.value(0)} + positional.mid(1));
    error(QStringLiteral("unknown command '%1' (see 'epromtool --help')").arg(positional.first()));
    return ExitUsage;
}

} // namespace epromtool
