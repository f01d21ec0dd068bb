// Common base of the single-value reference blocks: a count and one trimming value.
#pragma once

#include "HwDatablock.h"

namespace Tupsim {

// The EEPROM image shared by every reference block.
struct HwSDatablockRefCalValue {
    unsigned short blockId;
    unsigned short blockSize;
    unsigned short checksum;
    unsigned short alignment;
    unsigned int count; // number of values; the text form prints its low byte
    int value;          // the one calibration value (index 0)
};
static_assert(sizeof(HwSDatablockRefCalValue) == 16, "EEPROM layout");

class EPROMDATABLOCK_EXPORT HwDatablockRefCalValue : public HwDatablock {
public:
    enum { BlockSize = 16 };

    // Imports a record read from the EEPROM: 0, or 1 when its checksum is wrong.
    int setBlock(const HwSDatablockRefCalValue* block);
    // Imports a record without checking it.
    void swapBlock(const HwSDatablockRefCalValue* block);
    void swapBlock(HwEDataFormatTyp target, unsigned short id, HwDatablock* block) {
        HwDatablock::swapBlock(target, id, block);
    }

    std::ostream& printToStream(std::ostream& out) override;

protected:
    // `heading` holds the comment lines and the ID line of the text form, each with its newline;
    // `className` names the block in import errors, `failText` in store errors.
    HwDatablockRefCalValue(bool stopConversionOnError, unsigned short id, const char* className,
                           const char* heading, const char* failText);

    // Index 0 is the one value; any other index reads as 0.
    int value(unsigned char index) const;
    // Index 0 stores and reads back (-1 and error 1040002 on a mismatch); any other index
    // changes nothing and returns 0.
    int storeValue(int newValue, unsigned char index);
    unsigned int count() const;
    void storeCount(unsigned int newCount);

private:
    const char* className;
    const char* heading;
    const char* failText;
};

} // namespace Tupsim
