// Mainboard block holding the generator model name.
#pragma once

#include "HwDatablock.h"

#include <QString>
#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockMbrdModel {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    char model[32]; // NUL-padded
};
static_assert(sizeof(HwSDatablockMbrdModel) == 40, "model record is 40 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockMbrdModel : public HwDatablock {
public:
    HwDatablockMbrdModel();

    HwSDatablockMbrdModel* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockMbrdModel* record);
    void swapBlock(const HwSDatablockMbrdModel* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    // At most 32 characters, up to the first NUL.
    QString getModel();
    // Local 8-bit text; at most 31 bytes are written, the last byte of the field is kept.
    void setModel(const QString& model);
};

} // namespace Tupsim
