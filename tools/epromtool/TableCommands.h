// The commands that show calibration tables: one table with its axis, and the HTML report of a
// module.
#pragma once

#include <QStringList>

namespace epromtool {

int runTable(const QStringList& arguments);
int runReport(const QStringList& arguments);

} // namespace epromtool
