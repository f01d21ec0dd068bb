// Identification block of an auxiliary EEPROM; its block id is chosen at construction.
#pragma once

#include "HwDatablock.h"
#include "HwEVariantEepromDatablock.h"

#include <QString>
#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockMiscIdent {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 eepromSize;
    quint32 partNumber;
    quint8 variant;
    quint8 hardwareCode;
    quint16 productIndex;
    quint32 serialNumber;
    quint16 productDate;
    quint16 readCode;
    quint16 testInstruction;
    char name[14];
};
static_assert(sizeof(HwSDatablockMiscIdent) == 44, "misc ident record is 44 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockMiscIdent : public HwDatablock {
public:
    explicit HwDatablockMiscIdent(HwEVariantEepromDatablock id = VARIANT_STREAM_OPT_IDENT);

    // The id given at construction (the image's id may change through setBlock).
    HwEVariantEepromDatablock getMiscBlockId() const { return miscBlockId; }

    HwSDatablockMiscIdent* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockMiscIdent* record);
    void swapBlock(const HwSDatablockMiscIdent* record);
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    unsigned int getEepromSize();
    unsigned int getPartNumber();
    unsigned char getVariant();
    unsigned char getHardwareCode();
    unsigned short getProductIndex();
    unsigned int getSerialNumber();
    unsigned short getProductDate();
    unsigned short getReadCode();
    unsigned short getTestInstruction();
    QString getName();

private:
    HwEVariantEepromDatablock miscBlockId;
};

} // namespace Tupsim
