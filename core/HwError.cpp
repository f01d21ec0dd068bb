// The error printer: stderr with a red prefix, the error log, the debug server's history.
#include "HwError.h"

#include "IDebugServer.h"
#include "ISystemServices.h"

#include <cstdarg>
#include <cstdio>

namespace Tupsim {

void printHwError(const char* format, ...) {
    if (format == nullptr)
        return;
    va_list args;
    va_start(args, format);

    va_list copy;
    va_copy(copy, args);
    std::fputs("\033[1;31mError:\033[0;0m   ", stderr);
    std::vfprintf(stderr, format, copy);
    va_end(copy);

    if (FILE* log = systemServices()->getLogAccess()) {
        va_copy(copy, args);
        std::vfprintf(log, format, copy);
        va_end(copy);
        std::fflush(log);
    }

    va_copy(copy, args);
    debugServer()->logHistory(nullptr, 0, format, copy);
    va_end(copy);
    va_end(args);
}

} // namespace Tupsim
