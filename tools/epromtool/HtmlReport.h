// The module report as one self-contained HTML page: verdict, record fields, every calibration
// table as an inline SVG plot with its numbers, and the other blocks.
#pragma once

#include <ModuleReport.h>
#include <QString>
#include <QStringList>

namespace epromtool {

// `paths` names the image or the two images the report was built from.
QString htmlReport(const Tupsim::ModuleReport& report, const QStringList& paths);

} // namespace epromtool
