// The table of commands and the dispatch from the command word to its runner.
#pragma once

#include <QStringList>
#include <QVector>

namespace epromtool {

struct CommandEntry {
    const char* name;
    const char* summary;
    int (*run)(const QStringList& arguments);
};

class CommandTable {
public:
    static const QVector<CommandEntry>& commands();
    // Parses the command word and hands the rest to its command; returns the exit code.
    static int dispatch(const QStringList& arguments);
};

} // namespace epromtool
