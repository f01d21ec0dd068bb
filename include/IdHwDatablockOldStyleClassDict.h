// Ordered map from old-style block id to the prototype object of its class (not owning).
#pragma once

#include "HwDatablock.h"

#include <map>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT IdHwDatablockOldStyleClassDict : public std::map<int, HwDatablock*> {
public:
    using std::map<int, HwDatablock*>::map;
};

} // namespace Tupsim
