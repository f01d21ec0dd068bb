// epromtool sample -o FILE: writes the demonstration image.
#include "CommandLine.h"
#include "Commands.h"
#include "Console.h"
#include "ExitCode.h"
#include "SafeWriter.h"
#include "SampleImage.h"

namespace epromtool {

int runSample(const QStringList& arguments) {
    CommandLine line(QStringLiteral("sample"),
                     QStringLiteral("Writes a demonstration EEPROM image of 32 KiB, built through "
                                    "the library's own setters: identification, service, "
                                    "statistics and modification blocks, calibration tables, a "
                                    "self-describing block and the end block. The bytes are the "
                                    "same on every run."));
    line.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                    QStringLiteral("The file to write (required)."),
                    QStringLiteral("FILE")});
    const int early = line.parse(arguments);
    if (early >= 0)
        return early;
    if (!line.isSet(QStringLiteral("output")))
        return line.usageError(QStringLiteral("missing -o FILE"));
    QString error;
    if (!SafeWriter::write(line.value(QStringLiteral("output")), SampleImage::build(), false,
                           error)) {
        Console::error(error);
        return ExitWriteFailed;
    }
    return ExitOk;
}

} // namespace epromtool
