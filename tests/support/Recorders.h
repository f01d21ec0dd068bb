// Test doubles for the host services: they record what the library signals and prints.
#pragma once

#include <IDebugServer.h>
#include <IErrorManager.h>
#include <ISystemServices.h>

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace Tupsim {
namespace test {

class RecordingErrorManager : public IErrorManager {
public:
    void registerErrors(const SErrorDefinition* definitions, int count) override;
    void signal(int code, const QString& text) override;

    std::vector<SErrorDefinition> registered;
    int registerCalls = 0;
    std::vector<std::pair<int, QString>> signalled;
};

struct DebugLine {
    int module;
    int cls;
    int level;
    QString text;
};

class RecordingDebugServer : public IDebugServer {
public:
    void initDebug() override { ++initCalls; }
    void exitDebug() override { ++exitCalls; }
    bool isActive(int, int level, int cls) override;
    void println(int module, int cls, const QString& text, int level, int flags, const char* file,
                 int line) override;
    void setClippingLevel(int, int level) override { clipping = level; }
    void enableMessageClassType(int, int newMask) override { mask = newMask; }
    void setMessageLevelDescriptions(int, int count, const char* const* texts) override;
    void setMessageClassDescriptions(int, int count, const char* const* texts) override;
    int debugMessageBox(const char* first, const char* second, bool modal, int module, int kind,
                        int a, int b) override;
    void logHistory(const char* file, int line, const char* format, va_list args) override;

    int clipping = 5;
    int mask = -1;
    int initCalls = 0;
    int exitCalls = 0;
    std::vector<DebugLine> lines;
    QStringList messageBoxes; // "first|second|modal|module|kind|a|b"
    QStringList history;
    QStringList levelTexts;
    QStringList classTexts;
};

class RecordingSystemServices : public ISystemServices {
public:
    QString getSystemRwPath() override { return rwPath; }
    FILE* getLogAccess() override { return log; }
    QString rwPath;
    FILE* log = nullptr;
};

// Installs fresh recorders for the lifetime of a test and restores the built-in services.
class ServiceRecorders {
public:
    ServiceRecorders();
    ~ServiceRecorders();
    RecordingErrorManager errors;
    RecordingDebugServer debug;
    RecordingSystemServices system;
};

} // namespace test
} // namespace Tupsim
