// Statistics block of a module: its operating hours.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockStatistic {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 opHours;
};
static_assert(sizeof(HwSDatablockStatistic) == 12, "statistics record is 12 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockStatistic : public HwDatablock {
public:
    HwDatablockStatistic();

    HwSDatablockStatistic* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockStatistic* record);
    // Copies a record through the setters without checking it; alignment becomes 0.
    void swapBlock(const HwSDatablockStatistic* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    unsigned int getOpHours();
    void setOpHours(unsigned int hours);
};

} // namespace Tupsim
