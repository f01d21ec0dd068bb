// List of the modifications applied to a module, of any length: 32-bit service codes.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>
#include <vector>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

// The header of the record; the 32-bit service codes follow it up to the block size.
struct HwSDatablockModification120 {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
};
static_assert(sizeof(HwSDatablockModification120) == 8, "modification120 header is 8 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockModification120 : public HwDatablock {
public:
    HwDatablockModification120();

    HwSDatablockModification120* getBlock();
    // Imports `blockSize` bytes starting at the record (header and codes); the caller's buffer
    // must hold that many. 1 (error 1040001 signalled) for a size below 8 or a bad checksum.
    int setBlock(const HwSDatablockModification120* record);
    // Converts the own image in place: header words and every code through the byte-order hooks.
    void swapBlock();
    // The same as swapBlock(); named like the other blocks' in-place swap.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    unsigned int getNumberOfServiceCode();
    // Code `index`; 0 when out of range.
    unsigned int getServiceCode(unsigned int index);

    // Rebuilds the header copy and the code list from the image.
    void reInterpretData();

private:
    HwSDatablockModification120 header;
    std::vector<quint32> serviceCodes;
};

} // namespace Tupsim
