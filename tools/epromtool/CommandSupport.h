// Steps that several commands share: loading an image with a clear complaint, reporting its
// problems on standard error, and the common shape of the read-only report commands.
#pragma once

#include "ImageReport.h"

#include <QJsonDocument>
#include <QStringList>

namespace epromtool {

class BlockCatalogue;

class CommandSupport {
public:
    // False, after one line on standard error, when the file cannot be read.
    static bool load(ImageReport& report, const QString& path, BlockCatalogue& catalogue);
    // "PATH: 0x0010: ..." on standard error for each problem.
    static void complain(const ImageReport& report, const QVector<Problem>& problems);
    // Complains about every problem; true (after "PATH: the chain is broken, nothing DONE")
    // when the chain is broken and the command must stop.
    static bool stopOnBrokenChain(const ImageReport& report, const QString& done);

    using TextForm = QStringList (*)(const ImageReport&);
    using JsonForm = QJsonDocument (*)(const ImageReport&);
    // A command that reads IMAGE and prints one report of it, as text or with --json as JSON.
    static int runReport(const QStringList& arguments, const QString& command,
                         const QString& description, TextForm text, JsonForm json);
};

} // namespace epromtool
