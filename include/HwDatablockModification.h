// List of the modifications applied to a module: ten service codes.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockModification {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint16 serviceCode[10]; // bits 15..14 action, 13..0 circular number
};
static_assert(sizeof(HwSDatablockModification) == 28, "modification record is 28 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockModification : public HwDatablock {
public:
    HwDatablockModification();

    HwSDatablockModification* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockModification* record);
    // Copies a record through the setters without checking it; alignment becomes 0.
    void swapBlock(const HwSDatablockModification* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    // Entries 0 to 9; a larger index reads 0 and is ignored by the setters.
    unsigned short getServiceCode(unsigned char index);
    unsigned short getAction(unsigned char index);
    unsigned short getCircularNr(unsigned char index);
    void setServiceCode(unsigned char index, unsigned short code);
    void setAction(unsigned char index, unsigned short action);
    void setCircularNr(unsigned char index, unsigned short circularNr);

protected:
    // For a list kind of the same layout: its name in the text form and its rejection text.
    HwDatablockModification(const char* listName, const char* rejectText);
    // setBlock and swapBlock over a record of this layout given by pointer.
    int importRecord(const void* record);
    void copyRecord(const void* record, bool keepAlignment);

private:
    const char* listName;
    const char* rejectText;
};

} // namespace Tupsim
