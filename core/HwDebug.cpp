// Debug front end: level and class tables, last class and level, and the service log.
#include "HwDebug.h"

#include "IDebugServer.h"
#include "ISystemServices.h"

#include <QDateTime>
#include <QFile>

namespace Tupsim {

namespace {

const char* const kLevels[] = {"++ CRITICAL ++: *** ",
                               "         Error:     ",
                               "       Warning:     ",
                               "          Info:     ",
                               "         Trace:     ",
                               "         Debug:     ",
                               nullptr};

// Class 11 is reserved; its slot keeps the table indexed by class number.
const char* const kClasses[] = {"    DriverAccess, ", "  HardwareAccess, ",
                                "            Jtag, ", "      Repository, ",
                                "             Spi, ", " MicroController, ",
                                "       SerialBus, ", "           Timer, ",
                                "          Eeprom, ", "       JamPlayer, ",
                                "       Interrupt, ", "                  ",
                                "        Diagnose, ", nullptr};

int lastClass = 0;
int lastLevel = 5;

} // namespace

const char* const* HwDebug::levelDescriptions() {
    return kLevels;
}
const char* const* HwDebug::classDescriptions() {
    return kClasses;
}

void HwDebug::init() {
    IDebugServer* server = debugServer();
    server->initDebug();
    server->setMessageLevelDescriptions(ModuleNumber, -1, kLevels);
    server->setMessageClassDescriptions(ModuleNumber, -1, kClasses);
}

void HwDebug::exit() {
    debugServer()->exitDebug();
}

bool HwDebug::checkOutput(int cls, int level) {
    lastClass = cls;
    lastLevel = level;
    return debugServer()->isActive(ModuleNumber, level, cls);
}

int HwDebug::getLastClass() {
    return lastClass;
}
int HwDebug::getLastLevel() {
    return lastLevel;
}

void HwDebug::println(int cls, int level, const QString& text) {
    lastClass = cls;
    lastLevel = level;
    IDebugServer* server = debugServer();
    if (!server->isActive(ModuleNumber, level, cls))
        return;
    const QString local = QString::fromLatin1(text.toLocal8Bit());
    server->println(ModuleNumber, cls, local, level, 0, nullptr, -1);
}

void HwDebug::println(const QString& text) {
    println(lastClass, lastLevel, text);
}

void HwDebug::setDebugLevel(int level) {
    debugServer()->setClippingLevel(ModuleNumber, level);
}

void HwDebug::setDebugMask(int mask) {
    debugServer()->enableMessageClassType(ModuleNumber, mask);
}

void HwDebug::srvExtFileOutput(const char* text) {
    QFile file(systemServices()->getSystemRwPath() + QStringLiteral("/SrvExt.log"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    const QString line =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd; hh:mm")) +
        QStringLiteral(" -- ") + QString::fromLocal8Bit(text ? text : "") + QStringLiteral("\r\n");
    file.write(line.toLocal8Bit());
    file.close();
}

} // namespace Tupsim
