// Opaque IPC user block 10040: 90 user bytes from offset 4 on, over checksum and alignment.
#pragma once

#include "HwDatablock.h"

#include <QtGlobal>

namespace Tupsim {

struct HwSDatablockIpcUser10040 {
    quint16 blockId;
    quint16 blockSize;
    quint8 data[90]; // the checksum word lies in data[0..1]
};
static_assert(sizeof(HwSDatablockIpcUser10040) == 94, "IPC user record is 94 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockIpcUser10040 : public HwDatablock {
public:
    HwDatablockIpcUser10040();

    HwSDatablockIpcUser10040* getBlock();
    // Refuses a record (error 1040001, returns 1) only when its checksum fails and it is not
    // exactly id 10040 of size 94: the right id and size are accepted even with a bad checksum.
    int setBlock(const HwSDatablockIpcUser10040* record);
    std::ostream& printToStream(std::ostream& out) override;
};

} // namespace Tupsim
