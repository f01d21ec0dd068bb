// The commands of epromtool: each takes its arguments (program name first, command word
// removed) and returns the exit code.
#pragma once

#include <QStringList>

namespace epromtool {

int runList(const QStringList& arguments);
int runVerify(const QStringList& arguments);
int runShow(const QStringList& arguments);
int runDiff(const QStringList& arguments);
int runExport(const QStringList& arguments);
int runImport(const QStringList& arguments);
int runSet(const QStringList& arguments);
int runFix(const QStringList& arguments);
int runWrite(const QStringList& arguments);
int runSample(const QStringList& arguments);

} // namespace epromtool
