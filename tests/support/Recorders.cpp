// Test doubles for the host services.
#include "support/Recorders.h"

namespace Tupsim {
namespace test {

void RecordingErrorManager::registerErrors(const SErrorDefinition* definitions, int count) {
    ++registerCalls;
    for (int i = 0; i < count && definitions[i].code != -1; ++i)
        registered.push_back(definitions[i]);
}

void RecordingErrorManager::signal(int code, const QString& text) {
    signalled.emplace_back(code, text);
}

bool RecordingDebugServer::isActive(int, int level, int cls) {
    return level <= clipping && cls >= 0 && cls < 32 && (mask & (1 << cls)) != 0;
}

void RecordingDebugServer::println(int module, int cls, const QString& text, int level, int,
                                   const char*, int) {
    lines.push_back({module, cls, level, text});
}

static QStringList toList(int count, const char* const* texts) {
    QStringList list;
    for (int i = 0; count < 0 ? texts[i] != nullptr : i < count; ++i)
        list << QString::fromLatin1(texts[i]);
    return list;
}

void RecordingDebugServer::setMessageLevelDescriptions(int, int count, const char* const* texts) {
    levelTexts = toList(count, texts);
}

void RecordingDebugServer::setMessageClassDescriptions(int, int count, const char* const* texts) {
    classTexts = toList(count, texts);
}

int RecordingDebugServer::debugMessageBox(const char* first, const char* second, bool modal,
                                          int module, int kind, int a, int b) {
    messageBoxes << QStringLiteral("%1|%2|%3|%4|%5|%6|%7")
                        .arg(first, second)
                        .arg(modal)
                        .arg(module)
                        .arg(kind)
                        .arg(a)
                        .arg(b);
    return 0;
}

void RecordingDebugServer::logHistory(const char*, int, const char* format, va_list args) {
    history << QString::vasprintf(format, args);
}

ServiceRecorders::ServiceRecorders() {
    setErrorManager(&errors);
    setDebugServer(&debug);
    setSystemServices(&system);
}

ServiceRecorders::~ServiceRecorders() {
    setErrorManager(nullptr);
    setDebugServer(nullptr);
    setSystemServices(nullptr);
}

} // namespace test
} // namespace Tupsim
