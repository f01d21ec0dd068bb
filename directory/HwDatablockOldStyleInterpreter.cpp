// Directory of the old-style blocks and their per-id byte-order conversion.
#include "HwDatablockOldStyleInterpreter.h"

namespace Tupsim {

HwDatablockOldStyleInterpreter::HwDatablockOldStyleInterpreter() = default;

HwDatablockOldStyleInterpreter::HwDatablockOldStyleInterpreter(
    const HwDatablockOldStyleInterpreter& other) = default;

HwDatablockOldStyleInterpreter&
HwDatablockOldStyleInterpreter::operator=(const HwDatablockOldStyleInterpreter& other) = default;

HwDatablockOldStyleInterpreter::~HwDatablockOldStyleInterpreter() {
    for (auto& entry : dict)
        delete entry.second;
    dict.clear();
}

bool HwDatablockOldStyleInterpreter::printHwDatablockOldStyleInfo(HwDatablock* block,
                                                                  std::ostream& out) {
    if (block == nullptr)
        return false;
    HwDatablock* prototype = dict[static_cast<int>(block->getId())];
    if (prototype == nullptr)
        return false;
    prototype->resizeData(static_cast<unsigned short>(block->getBlockSize()));
    prototype->setData(block);
    prototype->printToStream(out);
    return true;
}

bool HwDatablockOldStyleInterpreter::swapHwDatablock(HwEDataFormatTyp, int, HwDatablock*) {
    // No old-style block kind is registered yet.
    return false;
}

} // namespace Tupsim
