// Directory of the old-style blocks and their per-id byte-order conversion.
#include "HwDatablockOldStyleInterpreter.h"

namespace Tupsim {

bool HwDatablockOldStyleInterpreter::swapHwDatablock(HwEDataFormatTyp, int, HwDatablock*) {
    // No old-style block kind is registered yet.
    return false;
}

} // namespace Tupsim
