// List of the modifications applied to a module, second kind: the same ten service codes.
#pragma once

#include "HwDatablockModification.h"

namespace Tupsim {

struct HwSDatablockModification110 {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint16 serviceCode[10];
};
static_assert(sizeof(HwSDatablockModification110) == 28, "modification record is 28 bytes");

// Same layout and byte-order rule as the first kind; it prints as MODIFICATION_110.
class EPROMDATABLOCK_EXPORT HwDatablockModification110 : public HwDatablockModification {
public:
    // Built with block id 100, like the first kind: kept so on purpose.
    HwDatablockModification110();

    HwSDatablockModification110* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockModification110* record);
    // Copies a record through the setters without checking it; alignment becomes 0.
    void swapBlock(const HwSDatablockModification110* record);
};

} // namespace Tupsim
