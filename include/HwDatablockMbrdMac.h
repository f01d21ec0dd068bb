// Mainboard block holding the MAC address.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

struct HwSDatablockMbrdMac {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint32 macLength;    // number of valid bytes in mac
    quint8 mac[16];       // bytes beyond the length are 0xFF
    quint8 reserved[228]; // 0xFF
};
static_assert(sizeof(HwSDatablockMbrdMac) == 256, "MAC record is 256 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockMbrdMac : public HwDatablock {
public:
    HwDatablockMbrdMac();

    HwSDatablockMbrdMac* getBlock();
    // Accepts only a record that verifies and is id 12004 of size 256; otherwise signals and
    // returns 1040000. The stored length always becomes 16, whatever the record's length word.
    int setBlock(const HwSDatablockMbrdMac* record);
    void swapBlock(const HwSDatablockMbrdMac* record);
    // Prints nothing: the address is not part of the text form.
    std::ostream& printToStream(std::ostream& out) override;

    // Stores the length, fills the address field with 0xFF and copies the bytes (at most the 16
    // of the field). Leaves the checksum as it is.
    void setMac(const unsigned char* mac, unsigned int length);
    // The address bytes (nullptr for a short image); the length word goes to `length` if given.
    unsigned char* getMac(unsigned int* length);
    unsigned int getMacLength();
};

} // namespace Tupsim
