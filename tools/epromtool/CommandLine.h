// The command line of epromtool: exit codes, one parser per command, and the dispatch from the
// command word to its runner.
#pragma once

#include <Outcome.h>
#include <QCommandLineParser>
#include <QStringList>
#include <optional>

namespace epromtool {

// A larger code means a worse outcome.
enum ExitCode : int {
    ExitOk = 0,
    ExitChecksum = 1,    // a 16-bit checksum or a CRC-32 failed
    ExitUnreadable = 2,  // an input could not be read, the chain is broken, or a block, field
                         // or value was refused
    ExitWriteFailed = 3, // the output could not be written
    ExitUsage = 64,      // the command line is wrong
};

// The exit code of every result code of the library: the one place where they are chosen.
ExitCode exitCodeOf(Tupsim::ResultCode code);

inline int worse(int a, int b) {
    return a > b ? a : b;
}

// The exit code to return at once, after the help or a usage error has been printed; nothing
// to go on.
using Stop = std::optional<int>;

class CommandLine {
public:
    CommandLine(const QString& command, const QString& description);

    // Adds a required positional argument.
    void addArgument(const QString& name, const QString& description);
    void addOption(const QCommandLineOption& option);
    // Names the arguments that rest() returns, for the help text.
    void addOptionalArguments(const QString& syntax, const QString& description);
    void addJsonOption();
    // --offset N: where the chain starts in the file.
    void addOffsetOption();
    // -o/--output FILE, --dry-run and --no-backup of the commands that write an image.
    // and the options of addDeviceWriteOptions.
    void addWriteOptions(const QString& output);
    // --dry-run, --no-backup, --in-place, --page-size N and --backup-dir DIR.
    void addDeviceWriteOptions();

    // With `takesRest`, arguments behind the required ones are kept for rest().
    Stop parse(const QStringList& arguments, bool takesRest = false);

    QString argument(int index) const;
    // The positional arguments behind the required ones.
    QStringList rest() const { return parser.positionalArguments().mid(required.size()); }
    bool isSet(const QString& option) const { return parser.isSet(option); }
    QString value(const QString& option) const { return parser.value(option); }
    QStringList values(const QString& option) const { return parser.values(option); }
    bool json() const { return parser.isSet(QStringLiteral("json")); }

    // Reports a usage error in the command's name and returns its exit code.
    int usageError(const QString& text) const;
    // --id N, the block id that the command requires.
    void addIdOption();
    // --index K, the K-th block with that id; `what` says what the command does with it
    // ("Set"), or nothing.
    void addIndexOption(const QString& what);
    // The --id N that the command requires, in `id`.
    Stop requiredId(quint16& id) const;
    // The value of --index (1 when it is not given) in `occurrence`.
    Stop occurrence(int& occurrence) const;
    // Parses a block id given in decimal or as 0x...; false when it is none.
    static bool parseId(const QString& text, quint16& id);
    // The value of --offset (0 when it is not given) in `start`.
    Stop chainStart(int& start) const;
    // parse() and then chainStart().
    Stop parseImageCommand(const QStringList& arguments, int& start, bool takesRest = false);

private:
    QString command;
    QCommandLineParser parser;
    QStringList required;
};

// Parses the command word and hands the rest to its command; returns the exit code.
int dispatch(const QStringList& arguments);

} // namespace epromtool
