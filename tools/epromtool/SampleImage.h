// A demonstration EEPROM image built block by block through the library's own setters.
#pragma once

#include <QByteArray>

namespace epromtool {

class SampleImage {
public:
    // Size of the module EEPROM the sample stands for; the ident block says so too.
    static constexpr int EepromSize = 32 * 1024;

    // The same bytes on every call: nothing depends on the clock or the machine.
    static QByteArray build();

private:
    static QByteArray identification();
    static QByteArray serviceBlocks();
    static QByteArray calibrationTables();
    static QByteArray selfDescribing();
};

} // namespace epromtool
