// Directory of the old-style blocks: block id to the class that interprets and converts it.
#pragma once

#include "HwDatablock.h"

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwDatablockOldStyleInterpreter {
public:
    // Converts `block` by the rule of the class registered for `id`; false for an unknown id.
    static bool swapHwDatablock(HwEDataFormatTyp format, int id, HwDatablock* block);
};

} // namespace Tupsim
