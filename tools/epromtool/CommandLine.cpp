// One command's arguments, parsed by its own QCommandLineParser.
#include "CommandLine.h"

#include "Console.h"
#include "ExitCode.h"

namespace epromtool {

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

void CommandLine::addOption(const QCommandLineOption& option) {
    parser.addOption(option);
}

void CommandLine::addJsonOption() {
    parser.addOption({QStringLiteral("json"), QStringLiteral("Machine-readable output (JSON).")});
}

int CommandLine::parse(const QStringList& arguments) {
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        Console::out(parser.helpText().trimmed() + QStringLiteral("\n\n") + exitCodeHelp());
        return ExitOk;
    }
    const int given = parser.positionalArguments().size();
    if (given < required.size())
        return usageError(
            QStringLiteral("missing %1").arg(required.mid(given).join(QLatin1Char(' '))));
    if (given > required.size())
        return usageError(QStringLiteral("unexpected argument '%1'")
                              .arg(parser.positionalArguments().at(required.size())));
    return -1;
}

QString CommandLine::argument(int index) const {
    return parser.positionalArguments().value(index);
}

int CommandLine::usageError(const QString& text) const {
    Console::error(QStringLiteral("%1: %2 (see 'epromtool %1 --help')").arg(command, text));
    return ExitUsage;
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

} // namespace epromtool
