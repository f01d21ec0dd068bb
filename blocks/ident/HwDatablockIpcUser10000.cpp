// Opaque IPC user block 10000.
#include "HwDatablockIpcUser10000.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/IpcUserData.h"

namespace Tupsim {

namespace {
const ipcuser::Layout kLayout = {10000, 56, 8, "   HwDatablockIpcUser10000"};
}

HwDatablockIpcUser10000::HwDatablockIpcUser10000() : HwDatablock(false) {
    image() = blockfields::freshImage(10000, 56);
}

HwSDatablockIpcUser10000* HwDatablockIpcUser10000::getBlock() {
    return blockfields::recordView<HwSDatablockIpcUser10000>(image());
}

int HwDatablockIpcUser10000::setBlock(const HwSDatablockIpcUser10000* record) {
    return ipcuser::importRecord(*this, image(), record, kLayout);
}

std::ostream& HwDatablockIpcUser10000::printToStream(std::ostream& out) {
    ipcuser::print(out, image(), kLayout);
    return out;
}

} // namespace Tupsim
