// How epromtool writes: the write options of its command line turned into the library's, and
// what the library did turned into report lines.
#pragma once

#include <ImageWriter.h>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace epromtool {

class CommandLine;

// The options --dry-run, --no-backup, --in-place, --page-size and --backup-dir as given.
Tupsim::WriteOptions writeOptions(const CommandLine& line);

// What a finished write did: the backup, the pages written and the read-back, or what a dry
// run would have written.
QStringList writeLines(const QString& target, const Tupsim::WriteResult& result,
                       const Tupsim::WriteOptions& options);

// The line for a failed write: the library's reason, and for a replaced file that it was left
// as it was.
QString writeFailure(const QString& target, const Tupsim::WriteResult& result);

// A plain output file (export, sample, report), replaced once complete, without backup; when
// that fails, the exit code to stop with, after one line on standard error.
std::optional<int> writeOutput(const QString& path, const QByteArray& content);

} // namespace epromtool
