// Consumer check: builds a block through the installed headers and verifies it, then opens the
// demonstration image through the installed image layer.
#include <EpromDatablock.h>

#include <cstdio>

int main(int argc, char** argv) {
    Tupsim::HwDatablock block(false);
    block.setBlockId(4711);
    if (block.getId() != 4711 || block.getBlockSize() != 8 || !block.verifyChecksum()) {
        std::puts("consumer: unexpected block state");
        return 1;
    }
    if (argc > 1) {
        Tupsim::EepromImage image;
        const Tupsim::Outcome read =
            Tupsim::EepromImage::fromFile(QString::fromLocal8Bit(argv[1]), image);
        if (!read.ok()) {
            std::printf("consumer: %s\n", qPrintable(read.message));
            return 1;
        }
        const int last = image.blockCount() - 1;
        if (image.blockCount() != 14 || !image.ok() || image.name(0) != "IDENT_2" ||
            image.name(5) != "RFBO_ALC_DATA" || image.name(12) != "USER_20010" ||
            !image.block(12).hasCrc || !image.block(12).crcOk || !image.block(last).isEnd) {
            std::puts("consumer: unexpected image");
            return 1;
        }
    }
    std::puts("consumer: ok");
    return 0;
}
