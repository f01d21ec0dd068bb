// The caller's store of variant EEPROM blocks, indexed by their place in the EEPROM.
#pragma once

#include "EpromDatablockGlobal.h"

namespace Tupsim {

class HwDatablock;

class EPROMDATABLOCK_EXPORT IHwVariantEeprom {
public:
    virtual ~IHwVariantEeprom();
    virtual unsigned int getNumberOfBlocks() const = 0;
    // The block at `index`, still owned by the store; nullptr when there is none.
    virtual HwDatablock* getBlock(unsigned int index) const = 0;
    virtual bool hasBlock(unsigned int index) const = 0;
    // Removes the block at `index` and hands it, with its ownership, to the caller.
    virtual HwDatablock* takeBlock(unsigned int index) = 0;
    // Deletes every block held.
    virtual void clear() = 0;
    // Takes `block` and its ownership; a block held at `index` before is deleted.
    virtual void storeBlock(unsigned int index, HwDatablock* block) = 0;
};

} // namespace Tupsim
