// One calibration table with its frequency axis as text for the terminal, as CSV for
// spreadsheets and as JSON.
#pragma once

#include <QJsonDocument>
#include <QString>
#include <TableView.h>
#include <string>

namespace epromtool {

// A heading line, the axis line, then the cells under frequency column heads.
std::string tableText(const Tupsim::TableView& view);
// First line the axis in Hz (or the column numbers), then one line per row: its label, then
// its cells as the calibration text prints them.
std::string tableCsv(const Tupsim::TableView& view);
QJsonDocument tableJson(const QString& path, const Tupsim::TableView& view);

} // namespace epromtool
