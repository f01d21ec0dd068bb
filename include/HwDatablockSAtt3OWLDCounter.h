// Overload counter of a SATT3 step attenuator; one block per attenuator instance.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockSAtt3OWLDCounter {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 count;
};
static_assert(sizeof(HwSDatablockSAtt3OWLDCounter) == 12, "counter record is 12 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockSAtt3OWLDCounter : public HwDatablock {
public:
    // Block id 10604 plus the instance number.
    explicit HwDatablockSAtt3OWLDCounter(unsigned short instance = 0);

    HwSDatablockSAtt3OWLDCounter* getBlock();
    // Imports the count of a verified record (id and size stay); 1 (error 1040001 signalled)
    // when its checksum fails.
    int setBlock(const HwSDatablockSAtt3OWLDCounter* record);
    // Copies the count without checking the record; alignment becomes 0.
    void swapBlock(const HwSDatablockSAtt3OWLDCounter* record);
    // Ends without the empty line that follows the other blocks' text.
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    // The 32-bit word at 8 + 4 x index; only index 0 lies inside the block.
    unsigned int getCounterValue(unsigned short index);
    void setCounterValue(unsigned int value, unsigned short index);
};

} // namespace Tupsim
