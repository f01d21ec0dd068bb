// Interface of blocks that expose rows, columns and the bytes of their tables.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QByteArray>

namespace Tupsim {

// The unsigned argument selects a block of a list; single blocks ignore it.
class EPROMDATABLOCK_EXPORT IHwDatablockAccess {
public:
    virtual ~IHwDatablockAccess();
    virtual unsigned short getNumberOfRows(unsigned int block) = 0;
    virtual unsigned short getNumberOfColumns(unsigned int block) = 0;
    virtual char* getData(unsigned int block) = 0;
    // Number of bytes readable at getData(block).
    virtual unsigned short getBlockSize(unsigned int block) = 0;
    virtual bool setData(QByteArray image) = 0;
    virtual unsigned short computeChecksum() = 0;
    virtual unsigned int computeChecksum32() = 0;
    virtual unsigned int getId() = 0;
    virtual bool setEepromAddress(unsigned int address) = 0;
    virtual bool setEepromSector(unsigned int sector) = 0;
    virtual unsigned int getEepromSector() = 0;
    virtual float getUpdateIndex() = 0;
    virtual bool isListFormat() = 0;
    virtual void setListFormat(bool listFormat) = 0;
};

} // namespace Tupsim
