// Built-in debug server: clipping level and class mask, lines to stderr, a bounded history ring.
#include "IDebugServer.h"

#include <QByteArray>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace Tupsim {

IDebugServer::~IDebugServer() = default;

namespace {

const char* tableEntry(const std::vector<const char*>& table, int index) {
    return index >= 0 && static_cast<size_t>(index) < table.size() && table[index] ? table[index]
                                                                                   : "";
}

std::vector<const char*> readTable(int count, const char* const* texts) {
    std::vector<const char*> table;
    if (texts == nullptr)
        return table;
    for (int i = 0; count < 0 ? texts[i] != nullptr : i < count; ++i)
        table.push_back(texts[i]);
    return table;
}

int envInt(const char* name, int fallback) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0')
        return fallback;
    char* end = nullptr;
    long parsed = std::strtol(value, &end, 0);
    return (end && *end == '\0') ? static_cast<int>(parsed) : fallback;
}

class DefaultDebugServer : public IDebugServer {
public:
    DefaultDebugServer()
        : clipping(envInt("EPROM_DEBUG_LEVEL", 1)), mask(envInt("EPROM_DEBUG_MASK", -1)) {}

    void initDebug() override {}
    void exitDebug() override {}
    bool isActive(int, int level, int cls) override {
        return level <= clipping && cls >= 0 && cls < 32 && (mask & (1 << cls)) != 0;
    }
    void println(int, int cls, const QString& text, int level, int, const char*, int) override {
        std::fprintf(stderr, "%s%s%s\n", tableEntry(levels, level), tableEntry(classes, cls),
                     text.toLocal8Bit().constData());
    }
    void setClippingLevel(int, int level) override { clipping = level; }
    void enableMessageClassType(int, int newMask) override { mask = newMask; }
    void setMessageLevelDescriptions(int, int count, const char* const* texts) override {
        levels = readTable(count, texts);
    }
    void setMessageClassDescriptions(int, int count, const char* const* texts) override {
        classes = readTable(count, texts);
    }
    int debugMessageBox(const char* first, const char* second, bool, int, int, int, int) override {
        std::fprintf(stderr, "%s: %s\n", first ? first : "", second ? second : "");
        return 0;
    }
    void logHistory(const char*, int, const char* format, va_list args) override {
        if (format == nullptr)
            return;
        history.append(QString::vasprintf(format, args));
        while (history.size() > HistoryDepth)
            history.removeFirst();
    }

private:
    enum { HistoryDepth = 256 };
    int clipping;
    int mask;
    std::vector<const char*> levels;
    std::vector<const char*> classes;
    QStringList history;
};

DefaultDebugServer& builtIn() {
    static DefaultDebugServer server;
    return server;
}

IDebugServer* installed = nullptr;

} // namespace

IDebugServer* debugServer() {
    return installed ? installed : &builtIn();
}

void setDebugServer(IDebugServer* server) {
    installed = server;
}

} // namespace Tupsim
