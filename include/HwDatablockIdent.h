// Identification block that opens every module EEPROM: part number, serial number, name.
#pragma once

#include "HwDatablock.h"

#include <QString>
#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockIdent {
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
    quint16 productDate; // bits 15..9 year - 1980, 8..5 month, 4..0 day
    quint16 readCode;
    quint16 testInstruction;
    char name[14]; // NUL-terminated only when shorter than 14
};
static_assert(sizeof(HwSDatablockIdent) == 44, "ident record is 44 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockIdent : public HwDatablock {
public:
    HwDatablockIdent();

    // The record inside the image; nullptr while the image is shorter than a record.
    HwSDatablockIdent* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockIdent* record);
    // Copies a record field by field without checking it; the size comes from the record.
    void swapBlock(const HwSDatablockIdent* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
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

    void setEepromSize(unsigned int size);
    void setPartNumber(unsigned int partNumber);
    void setVariant(unsigned char variant);
    void setHardwareCode(unsigned char code);
    void setProductIndex(unsigned short index);
    void setSerialNumber(unsigned int serialNumber);
    void setProductDate(unsigned short date);
    void setReadCode(unsigned short code);
    void setTestInstruction(unsigned short issue);
    // Local 8-bit text, at most 14 bytes; no terminator when it fills the field.
    void setName(const QString& name);
};

} // namespace Tupsim
