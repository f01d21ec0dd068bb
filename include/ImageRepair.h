// Repairing stale 16-bit checksums and CRC-32s of the blocks of an image.
#pragma once

#include "EepromImage.h"

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

struct RepairPlan {
    QVector<BlockRepair> repairs;  // chain order
    QVector<ImageProblem> refused; // what cannot be repaired, left alone
    bool nothingToDo() const { return repairs.isEmpty(); }
};

// Every block whose 16-bit checksum or CRC-32 fails, or only those with `onlyId` when it is
// not negative. A CRC-32 is recomputed first, so that the checksum covers the new one. What the
// chain walk cannot delimit, and blocks too short for a CRC-32, are refused.
EPROMDATABLOCK_EXPORT RepairPlan planRepair(const EepromImage& image, int onlyId = -1);
// Stores the new values; every other byte stays. False, with `error`, when the plan does not
// fit the image.
EPROMDATABLOCK_EXPORT bool applyRepair(EepromImage& image, const RepairPlan& plan, QString& error);

} // namespace Tupsim
