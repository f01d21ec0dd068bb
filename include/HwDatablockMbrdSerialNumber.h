// Mainboard block holding the board serial number.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockMbrdSerialNumber {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment; // always written as 0
    quint32 serialNumber;
};
static_assert(sizeof(HwSDatablockMbrdSerialNumber) == 12, "serial-number record is 12 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockMbrdSerialNumber : public HwDatablock {
public:
    HwDatablockMbrdSerialNumber();

    HwSDatablockMbrdSerialNumber* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockMbrdSerialNumber* record);
    void swapBlock(const HwSDatablockMbrdSerialNumber* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    unsigned int getSerialNumber();
    void setSerialNumber(unsigned int serialNumber);
};

} // namespace Tupsim
