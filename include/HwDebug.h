// Static front end of the debug server (module 2) and the service log.
#pragma once

#include "HwObject.h"

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwDebug : public HwObject {
public:
    enum { ModuleNumber = 2 };
    enum Level { Critical = 0, Error = 1, Warning = 2, Info = 3, Trace = 4, Debug = 5 };
    enum Class {
        DriverAccess = 0,
        HardwareAccess = 1,
        Jtag = 2,
        Repository = 3,
        Spi = 4,
        MicroController = 5,
        SerialBus = 6,
        Timer = 7,
        Eeprom = 8,
        JamPlayer = 9,
        Interrupt = 10,
        Diagnose = 12
    };

    static void init();
    static void exit();
    static bool checkOutput(int cls, int level);
    static int getLastClass();
    static int getLastLevel();
    static void println(int cls, int level, const QString& text);
    static void println(const QString& text);
    static void setDebugLevel(int level);
    static void setDebugMask(int mask);
    // Appends "yyyy-MM-dd; hh:mm -- text\r\n" to SrvExt.log in the system read/write directory.
    static void srvExtFileOutput(const char* text);

    // The description tables handed to the debug server; each ends with a null pointer.
    static const char* const* levelDescriptions();
    static const char* const* classDescriptions();
};

} // namespace Tupsim
