// Debug server interface of the host: levelled, classed debug lines, message boxes and history.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QString>
#include <cstdarg>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT IDebugServer {
public:
    virtual ~IDebugServer();
    virtual void initDebug() = 0;
    virtual void exitDebug() = 0;
    virtual bool isActive(int module, int level, int cls) = 0;
    virtual void println(int module, int cls, const QString& text, int level, int flags,
                         const char* file, int line) = 0;
    virtual void setClippingLevel(int module, int level) = 0;
    virtual void enableMessageClassType(int module, int mask) = 0;
    // count -1: the table ends with a null pointer.
    virtual void setMessageLevelDescriptions(int module, int count, const char* const* texts) = 0;
    virtual void setMessageClassDescriptions(int module, int count, const char* const* texts) = 0;
    virtual int debugMessageBox(const char* first, const char* second, bool modal, int module,
                                int kind, int a, int b) = 0;
    virtual void logHistory(const char* file, int line, const char* format, va_list args) = 0;
};

EPROMDATABLOCK_EXPORT IDebugServer* debugServer();
EPROMDATABLOCK_EXPORT void setDebugServer(IDebugServer* server);

} // namespace Tupsim
