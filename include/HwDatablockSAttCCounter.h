// Overload and high-power counters of a SATTC step attenuator, and their backup copies.
#pragma once

#include "HwDatablock.h"
#include "HwEVariantEepromDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockSAttCCounter {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 counter[2];
};
static_assert(sizeof(HwSDatablockSAttCCounter) == 16, "SATTC counter record is 16 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockSAttCCounter : public HwDatablock {
public:
    // Ids 11300 to 11303: overload counter, its backup, high-power counter, its backup. The
    // checksum is valid from the start.
    explicit HwDatablockSAttCCounter(HwEVariantEepromDatablock id = VARIANT_SATTC_OVLDCOUNTER);

    // The id given at construction.
    HwEVariantEepromDatablock getInstance() const { return instance; }

    HwSDatablockSAttCCounter* getBlock();
    // Copies both counters without checking the record (a bad checksum is imported too) and
    // leaves a fresh checksum; 1 only for nullptr.
    int setBlock(const HwSDatablockSAttCCounter* record);
    // Copies both counters without checking the record; alignment 0, the record's checksum kept.
    void swapBlock(const HwSDatablockSAttCCounter* record);
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    // The 32-bit word at 8 + 4 x index; indexes 0 and 1 lie inside the block.
    unsigned int getCounterValue(unsigned short index);
    void setCounterValue(unsigned int value, unsigned short index);

private:
    HwEVariantEepromDatablock instance;
};

} // namespace Tupsim
