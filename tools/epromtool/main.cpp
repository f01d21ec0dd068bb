// epromtool: lists, checks, exports, imports, edits and repairs the datablocks of whole EEPROM
// images.
#include "CommandLine.h"

#include <IDebugServer.h>
#include <QCoreApplication>

namespace {

// Keeps the library's debug lines and message boxes off the tool's output: the tool reports
// what it finds itself.
class QuietDebugServer : public Tupsim::IDebugServer {
public:
    void initDebug() override {}
    void exitDebug() override {}
    bool isActive(int, int, int) override { return false; }
    void println(int, int, const QString&, int, int, const char*, int) override {}
    void setClippingLevel(int, int) override {}
    void enableMessageClassType(int, int) override {}
    void setMessageLevelDescriptions(int, int, const char* const*) override {}
    void setMessageClassDescriptions(int, int, const char* const*) override {}
    int debugMessageBox(const char*, const char*, bool, int, int, int, int) override { return 0; }
    void logHistory(const char*, int, const char*, va_list) override {}
};

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("epromtool"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EPROMTOOL_VERSION));
    QuietDebugServer quiet;
    Tupsim::setDebugServer(&quiet);
    const int code = epromtool::dispatch(QCoreApplication::arguments());
    Tupsim::setDebugServer(nullptr);
    return code;
}
