// epromtool verify IMAGE: checks every block and the chain, printing only what is wrong.
#include "CommandSupport.h"
#include "Commands.h"
#include "JsonReport.h"
#include "TextReport.h"

namespace epromtool {

int runVerify(const QStringList& arguments) {
    return CommandSupport::runReport(
        arguments, QStringLiteral("verify"),
        QStringLiteral("Checks the chain of IMAGE and every block's checksum and CRC-32; prints "
                       "the problems and one summary line."),
        &TextReport::verification, &JsonReport::verification);
}

} // namespace epromtool
