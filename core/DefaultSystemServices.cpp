// Built-in system services: read/write directory and error log from the environment.
#include "ISystemServices.h"

#include <QByteArray>
#include <cstdlib>

namespace Tupsim {

ISystemServices::~ISystemServices() = default;

namespace {

class DefaultSystemServices : public ISystemServices {
public:
    ~DefaultSystemServices() override {
        if (log)
            std::fclose(log);
    }
    QString getSystemRwPath() override {
        const QByteArray path = qgetenv("EPROM_RW_PATH");
        return path.isEmpty() ? QStringLiteral(".") : QString::fromLocal8Bit(path);
    }
    FILE* getLogAccess() override {
        if (!opened) {
            opened = true;
            const QByteArray path = qgetenv("EPROM_ERROR_LOG");
            if (!path.isEmpty())
                log = std::fopen(path.constData(), "a");
        }
        return log;
    }

private:
    bool opened = false;
    FILE* log = nullptr;
};

DefaultSystemServices& builtIn() {
    static DefaultSystemServices services;
    return services;
}

ISystemServices* installed = nullptr;

} // namespace

ISystemServices* systemServices() {
    return installed ? installed : &builtIn();
}

void setSystemServices(ISystemServices* services) {
    installed = services;
}

} // namespace Tupsim
