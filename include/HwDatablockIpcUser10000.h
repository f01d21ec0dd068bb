// Opaque IPC user block 10000: 48 user bytes after the header.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

struct HwSDatablockIpcUser10000 {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    quint8 data[48];
};
static_assert(sizeof(HwSDatablockIpcUser10000) == 56, "IPC user record is 56 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockIpcUser10000 : public HwDatablock {
public:
    HwDatablockIpcUser10000();

    HwSDatablockIpcUser10000* getBlock();
    // Refuses a record (error 1040001, returns 1) only when its checksum fails and it is not
    // exactly id 10000 of size 56: the right id and size are accepted even with a bad checksum.
    int setBlock(const HwSDatablockIpcUser10000* record);
    std::ostream& printToStream(std::ostream& out) override;
};

} // namespace Tupsim
