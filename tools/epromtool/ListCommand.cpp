// epromtool list IMAGE: one row per block in chain order and a closing summary.
#include "CommandSupport.h"
#include "Commands.h"
#include "JsonReport.h"
#include "TextReport.h"

namespace epromtool {

int runList(const QStringList& arguments) {
    return CommandSupport::runReport(
        arguments, QStringLiteral("list"),
        QStringLiteral("Lists the blocks of IMAGE in chain order: offset, id, name, size, 16-bit "
                       "checksum and, for ids 20000 and above, CRC-32."),
        &TextReport::listing, &JsonReport::listing);
}

} // namespace epromtool
