// The error printer for conditions that must never happen.
#pragma once

#include "EpromDatablockGlobal.h"

namespace Tupsim {

// Red "Error:" line on standard error, a copy in the error log, an entry in the debug history.
EPROMDATABLOCK_EXPORT void printHwError(const char* format, ...)
    __attribute__((format(printf, 1, 2)));

} // namespace Tupsim
