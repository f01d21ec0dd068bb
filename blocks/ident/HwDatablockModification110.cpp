// List of the modifications applied to a module, second kind.
#include "HwDatablockModification110.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {

HwDatablockModification110::HwDatablockModification110()
    : HwDatablockModification("MODIFICATION_110", "   HwDatablockModification110") {}

HwSDatablockModification110* HwDatablockModification110::getBlock() {
    return blockfields::recordView<HwSDatablockModification110>(image());
}

int HwDatablockModification110::setBlock(const HwSDatablockModification110* record) {
    return importRecord(record);
}

void HwDatablockModification110::swapBlock(const HwSDatablockModification110* record) {
    copyRecord(record, false);
}

} // namespace Tupsim
