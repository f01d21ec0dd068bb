// epromtool write: puts an image file onto a device or file (restoring a backup, programming a
// new module), through the library's writer: only the changed pages, then a read-back.
#include "CommandLine.h"
#include "Commands.h"
#include "Reports.h"
#include "SafeWriter.h"

#include <EepromImage.h>

using Tupsim::EepromImage;

namespace epromtool {

int runWrite(const QStringList& arguments) {
    CommandLine line(
        QStringLiteral("write"),
        QStringLiteral("Puts the image SOURCE onto TARGET, an EEPROM device (block or character "
                       "device, sysfs file) or a file of the same size. A device gets only the "
                       "pages that differ, after a backup of its previous content, and is read "
                       "back and compared. A SOURCE whose chain is broken or whose checks fail "
                       "is refused unless --force."));
    line.addArgument(QStringLiteral("SOURCE"), QStringLiteral("The image file to write."));
    line.addArgument(QStringLiteral("TARGET"), QStringLiteral("The device or file to write."));
    line.addOption({QStringLiteral("force"),
                    QStringLiteral("Write a SOURCE whose chain is broken or whose checks fail.")});
    line.addDeviceWriteOptions();
    if (const Stop stop = line.parse(arguments))
        return *stop;

    const QString sourcePath = line.argument(0);
    const QString target = line.argument(1);
    EepromImage source;
    if (const Stop stop = loadImage(sourcePath, source, 0))
        return *stop;
    if (!source.problems().isEmpty()) {
        complain(sourcePath, source.problems());
        if (!line.isSet(QStringLiteral("force"))) {
            error(QStringLiteral("%1: %2, nothing written (--force writes it anyway)")
                      .arg(sourcePath, source.chainBroken() ? QStringLiteral("the chain is broken")
                                                            : QStringLiteral("checks fail")));
            return exitCodeOf(Tupsim::ResultCode::Refused);
        }
    }
    Tupsim::WriteOptions options = writeOptions(line);
    options.sameSize = true;
    const Tupsim::WriteResult result = Tupsim::writeImage(target, source.bytes(), options);
    if (!result.ok()) {
        error(writeFailure(target, result));
        return exitCodeOf(result.outcome.code);
    }
    out(writeLines(target, result, options));
    return ExitOk;
}

} // namespace epromtool
