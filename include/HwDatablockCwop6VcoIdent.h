// Identification of the VCO on a CW option board: job, serial and lot numbers, oscillator subs.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockCwop6VcoIdent {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 jobNumber;
    quint16 serialNumber;
    quint16 lotNumber;
    quint16 taz;
    quint16 osc3Subh;
    quint16 osc3Subl;
    quint16 osc2Subh;
    quint16 osc2Subl;
    quint16 osc1Subh;
};
static_assert(sizeof(HwSDatablockCwop6VcoIdent) == 28, "VCO ident record is 28 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockCwop6VcoIdent : public HwDatablock {
public:
    HwDatablockCwop6VcoIdent();

    HwSDatablockCwop6VcoIdent* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockCwop6VcoIdent* record);
    void swapBlock(const HwSDatablockCwop6VcoIdent* record);
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    unsigned int getJobNumber();
    unsigned short getSerialNumber();
    unsigned short getLotNumber();
    unsigned short getTaz();
    unsigned short getOsc3Subh();
    unsigned short getOsc3Subl();
    unsigned short getOsc2Subh();
    unsigned short getOsc2Subl();
    unsigned short getOsc1Subh();

    void setJobNumber(unsigned int jobNumber);
    void setSerialNumber(unsigned short serialNumber);
    void setLotNumber(unsigned short lotNumber);
    void setTaz(unsigned short taz);
    void setOsc3Subh(unsigned short value);
    void setOsc3Subl(unsigned short value);
    void setOsc2Subh(unsigned short value);
    void setOsc2Subl(unsigned short value);
    void setOsc1Subh(unsigned short value);

private:
    // Stores one of the 16-bit words from offset 12 on and refreshes the checksum.
    void setWord(int offset, unsigned short value);
};

} // namespace Tupsim
