// Full-scale value of the IF DAC (id 12500).
#pragma once

#include "HwDatablock.h"

namespace Tupsim {

// The EEPROM image of the block.
struct HwSDatablockDacIfFullScale {
    unsigned short blockId;
    unsigned short blockSize;
    unsigned short checksum;
    unsigned short alignment;
    int fullScaleValue;
};
static_assert(sizeof(HwSDatablockDacIfFullScale) == 12, "EEPROM layout");

class EPROMDATABLOCK_EXPORT HwDatablockDacIfFullScale : public HwDatablock {
public:
    enum { BlockId = 12500, BlockSize = 12 };

    explicit HwDatablockDacIfFullScale(bool stopConversionOnError = false);

    int getFullScaleValue() const;
    void setFullScaleValue(int value);

    // Imports a record read from the EEPROM: 0, or 1 when its checksum is wrong.
    int setBlock(const HwSDatablockDacIfFullScale* block);
    // Imports a record without checking it.
    void swapBlock(const HwSDatablockDacIfFullScale* block);
    void swapBlock(HwEDataFormatTyp target, unsigned short id, HwDatablock* block) {
        HwDatablock::swapBlock(target, id, block);
    }

    std::ostream& printToStream(std::ostream& out) override;
};

} // namespace Tupsim
