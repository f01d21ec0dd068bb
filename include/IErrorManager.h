// Error manager interface of the host: takes the library's error definitions and signalled errors.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QString>

namespace Tupsim {

struct SErrorDefinition {
    int code;
    int number1;
    int number2;
    const char* text;
    const char* text2;
    const char* text3;
};

class EPROMDATABLOCK_EXPORT IErrorManager {
public:
    virtual ~IErrorManager();
    // Definitions end with a row whose code is -1; count is the caller's upper bound.
    virtual void registerErrors(const SErrorDefinition* definitions, int count) = 0;
    virtual void signal(int code, const QString& text) = 0;
};

// The installed manager, else the built-in one that writes to standard error.
EPROMDATABLOCK_EXPORT IErrorManager* errorManager();
// nullptr restores the built-in manager; the caller keeps ownership.
EPROMDATABLOCK_EXPORT void setErrorManager(IErrorManager* manager);

} // namespace Tupsim
