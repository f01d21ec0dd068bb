// Repairing stale 16-bit checksums and CRC-32s of the blocks of an image.
#pragma once

#include "ImagePlan.h"

namespace Tupsim {

struct BlockRepair {
    int index = 0;
    quint16 id = 0;
    int offset = 0;
    QString name;
    bool checksum = false; // the 16-bit checksum changes
    quint16 checksumBefore = 0;
    quint16 checksumAfter = 0;
    bool crc = false; // the CRC-32 changes
    quint32 crcBefore = 0;
    quint32 crcAfter = 0;
};

// The blocks with new checksums and CRC-32s in `replace`; what cannot be repaired, left alone,
// in `notes`.
struct RepairPlan : ImagePlan {
    QVector<BlockRepair> repairs; // chain order
};

// Every block whose 16-bit checksum or CRC-32 fails, or only those with `onlyId` when it is
// not negative. A CRC-32 is recomputed first, so that the checksum covers the new one. What the
// chain walk cannot delimit, and blocks too short for a CRC-32, are refused. Applied with
// applyPlan, which changes only the checksum and CRC-32 fields.
EPROMDATABLOCK_EXPORT RepairPlan planRepair(const EepromImage& image, int onlyId = -1);

} // namespace Tupsim
