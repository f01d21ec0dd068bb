// Built-in error manager: keeps the registered definitions and writes each signal to stderr.
#include "IErrorManager.h"

#include <QMap>
#include <cstdio>

namespace Tupsim {

IErrorManager::~IErrorManager() = default;

namespace {

class DefaultErrorManager : public IErrorManager {
public:
    void registerErrors(const SErrorDefinition* definitions, int count) override {
        if (definitions == nullptr)
            return;
        for (int i = 0; i < count && definitions[i].code != -1; ++i)
            texts.insert(definitions[i].code,
                         QString::fromLatin1(definitions[i].text ? definitions[i].text : ""));
    }
    void signal(int code, const QString& text) override {
        std::fprintf(stderr, "error %d: %s: %s\n", code,
                     texts.value(code).toLocal8Bit().constData(), text.toLocal8Bit().constData());
    }

private:
    QMap<int, QString> texts;
};

DefaultErrorManager& builtIn() {
    static DefaultErrorManager manager;
    return manager;
}

IErrorManager* installed = nullptr;

} // namespace

IErrorManager* errorManager() {
    return installed ? installed : &builtIn();
}

void setErrorManager(IErrorManager* manager) {
    installed = manager;
}

} // namespace Tupsim
