// Consumer check: builds a block through the installed headers and verifies it.
#include <EpromDatablock.h>

#include <cstdio>

int main() {
    Tupsim::HwDatablock block(false);
    block.setBlockId(4711);
    if (block.getId() != 4711 || block.getBlockSize() != 8 || !block.verifyChecksum()) {
        std::puts("consumer: unexpected block state");
        return 1;
    }
    std::puts("consumer: ok");
    return 0;
}
