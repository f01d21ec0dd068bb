// Checks one block with the library's own checksum and CRC-32 routines.
#include "BlockCheck.h"

#include "BlockImage.h"

#include <HwDatablock.h>

namespace epromtool {

BlockStatus BlockCheck::check(const BlockEntry& entry) {
    BlockStatus status;
    if (entry.isEnd)
        return status; // the end block has no checksum of its own

    Tupsim::HwDatablock block(false);
    loadImage(block, entry.image);
    // The walker cut the image to the block size (at most 65535), so the buffer forms check
    // exactly the block; unlike the object form they print nothing on a failure.
    auto* words = reinterpret_cast<unsigned short*>(block.getData());
    const auto size = static_cast<unsigned short>(entry.image.size());
    status.hasChecksum = true;
    status.storedChecksum = block.getChecksum();
    status.computedChecksum = block.computeChecksum(words, size);
    status.checksumOk = block.verifyChecksum(words, size, true);

    if (carriesCrc(entry.id)) {
        status.hasCrc = true;
        status.storedCrc = block.getChecksum32();
        status.computedCrc = block.computeChecksum32();
        status.crcOk = block.verifyChecksum32();
        status.eventCounter = status.crcOk && status.storedCrc != status.computedCrc &&
                              block.getDatablockClassTyp() == Tupsim::HwDatablockClassEventCount;
    }
    return status;
}

} // namespace epromtool
