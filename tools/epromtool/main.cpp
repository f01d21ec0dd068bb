// epromtool: lists, checks, exports and imports the datablocks of whole EEPROM images.
#include "CommandTable.h"
#include "QuietDebugServer.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("epromtool"));
    epromtool::QuietDebugServer quiet;
    Tupsim::setDebugServer(&quiet);
    const int code = epromtool::CommandTable::dispatch(QCoreApplication::arguments());
    Tupsim::setDebugServer(nullptr);
    return code;
}
