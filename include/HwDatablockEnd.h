// End block that closes the block chain of a module EEPROM.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

struct HwSDatablockEnd {
    quint16 endId; // 0xFFFF
    quint16 endData;
};
static_assert(sizeof(HwSDatablockEnd) == 4, "end record is 4 bytes");

// The end block has no size, checksum or alignment of its own: the checksum operations answer
// neutrally so that generic code may call them on every block.
class EPROMDATABLOCK_EXPORT HwDatablockEnd : public HwDatablock {
public:
    HwDatablockEnd();

    unsigned short computeChecksum(unsigned short* words, unsigned short size) override;
    unsigned short computeChecksum() override;
    unsigned short getBlockSize() override;
    unsigned short getChecksum() override;
    bool verifyChecksum(unsigned short* words, unsigned short size, bool) override;
    bool verifyChecksum() override;
    void setChecksum(unsigned short checksum) override;
    std::ostream& printToStream(std::ostream& out) override;

    HwSDatablockEnd* getBlock();
    // Copies both words without any check; 1 only for a null record.
    int setBlock(const HwSDatablockEnd* record);
    void swapBlock(const HwSDatablockEnd* record);

    void setEndBlock();
    void setEndBlockID(unsigned short id);
    void setEndBlockData(unsigned short data);
};

} // namespace Tupsim
