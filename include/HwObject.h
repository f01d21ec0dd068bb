// Root class of every datablock class: debug checks and output.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QString>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwObject {
public:
    virtual ~HwObject();
    virtual int getDebugLevel();

    int chkdbg(int cls);
    int chkdbg(int cls, int level) const;
    void dbgout(const QString& text) const;
    void dbgout(int level, const QString& text) const;
    QString getClassName(const QString& prefix);
};

} // namespace Tupsim
