// System-properties service and error log of the host.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QString>
#include <cstdio>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT ISystemServices {
public:
    virtual ~ISystemServices();
    // Directory that receives the service log.
    virtual QString getSystemRwPath() = 0;
    // The open error log, or nullptr when there is none.
    virtual FILE* getLogAccess() = 0;
};

EPROMDATABLOCK_EXPORT ISystemServices* systemServices();
EPROMDATABLOCK_EXPORT void setSystemServices(ISystemServices* services);

} // namespace Tupsim
