// Opaque IPC user block 10040.
#include "HwDatablockIpcUser10040.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/IpcUserData.h"

namespace Tupsim {

namespace {
const ipcuser::Layout kLayout = {10040, 94, 4, "   HwDatablockIpcUser10040"};
}

HwDatablockIpcUser10040::HwDatablockIpcUser10040() : HwDatablock(false) {
    image() = blockfields::freshImage(10040, 94);
}

HwSDatablockIpcUser10040* HwDatablockIpcUser10040::getBlock() {
    return blockfields::recordView<HwSDatablockIpcUser10040>(image());
}

int HwDatablockIpcUser10040::setBlock(const HwSDatablockIpcUser10040* record) {
    return ipcuser::importRecord(*this, image(), record, kLayout);
}

std::ostream& HwDatablockIpcUser10040::printToStream(std::ostream& out) {
    ipcuser::print(out, image(), kLayout);
    return out;
}

} // namespace Tupsim
