// One command's arguments, parsed by its own QCommandLineParser.
#pragma once

#include <QCommandLineParser>
#include <QStringList>

namespace epromtool {

class CommandLine {
public:
    CommandLine(const QString& command, const QString& description);

    // Adds a required positional argument.
    void addArgument(const QString& name, const QString& description);
    void addOption(const QCommandLineOption& option);
    void addJsonOption();

    // -1 to go on; otherwise the exit code to return at once, after the help or the usage
    // error has been printed.
    int parse(const QStringList& arguments);

    QString argument(int index) const;
    bool isSet(const QString& option) const { return parser.isSet(option); }
    QString value(const QString& option) const { return parser.value(option); }
    QStringList values(const QString& option) const { return parser.values(option); }
    bool json() const { return parser.isSet(QStringLiteral("json")); }

    // Reports a usage error in the command's name and returns its exit code.
    int usageError(const QString& text) const;
    // Parses a block id given in decimal or as 0x...; false when it is none.
    static bool parseId(const QString& text, quint16& id);

private:
    QString command;
    QCommandLineParser parser;
    QStringList required;
};

} // namespace epromtool
