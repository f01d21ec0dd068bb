// A demonstration EEPROM image built block by block through the library's own setters.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QByteArray>

namespace Tupsim {

// Size of the module EEPROM the sample stands for; the ident block says so too.
constexpr int SampleEepromSize = 32 * 1024;

// The same bytes on every call: nothing depends on the clock or the machine.
EPROMDATABLOCK_EXPORT QByteArray sampleImage();

} // namespace Tupsim
