// Power-on and operating-time tallies of a module, and their backup copies.
#pragma once

#include "HwDatablock.h"
#include "HwEVariantEepromDatablock.h"

#include <QtGlobal>

namespace Tupsim {

struct HwSDatablockCommonStatisticData {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 length; // valid data bytes, at most 512
    quint8 data[512];
};
static_assert(sizeof(HwSDatablockCommonStatisticData) == 524, "statistic record is 524 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockCommonStatisticData : public HwDatablock {
public:
    enum : unsigned int { MaxDataLength = 512 };

    // Ids 11310 to 11313: power-on count, operating time count and a backup of each.
    explicit HwDatablockCommonStatisticData(HwEVariantEepromDatablock id = VARIANT_POWERON_COUNT);

    // The id given at construction.
    HwEVariantEepromDatablock getStatisticId() const { return statisticId; }

    HwSDatablockCommonStatisticData* getBlock();
    // Takes id, alignment and data from the record without checking it; 1 only for nullptr.
    int setBlock(const HwSDatablockCommonStatisticData* record);
    // Copies size, id and checksum and sets alignment 0; the data are not copied.
    void swapBlock(const HwSDatablockCommonStatisticData* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;

    // Stores min(length, 512) as length and copies that many bytes; leaves the checksum alone.
    void setCommonStatisticData(const unsigned char* data, unsigned int length);
    // The data bytes (nullptr for a short image); the length word goes to `length` if given.
    unsigned char* getCommonStatisticData(unsigned int* length);
    unsigned int getCommonStatisticDataLength();

private:
    HwEVariantEepromDatablock statisticId;
};

} // namespace Tupsim
