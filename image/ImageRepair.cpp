// Repairing stale 16-bit checksums and CRC-32s of the blocks of an image.
#include "ImageRepair.h"

#include "core/BlockHeader.h"
#include "core/Checks.h"

namespace Tupsim {

namespace {

const unsigned char* at(const QByteArray& bytes, int offset) {
    return reinterpret_cast<const unsigned char*>(bytes.constData()) + offset;
}

} // namespace

RepairPlan planRepair(const EepromImage& image, int onlyId) {
    RepairPlan plan;
    const QByteArray& bytes = image.bytes();
    for (int i = 0; i < image.blockCount(); ++i) {
        const ImageBlock& entry = image.block(i);
        if (entry.isEnd || (onlyId >= 0 && entry.id != onlyId))
            continue;
        if (entry.checksumOk && entry.crcOk)
            continue;
        if (entry.hasCrc && entry.size <= 11) {
            plan.notes.append({entry.offset, ResultCode::Refused,
                               QStringLiteral("block %1: %2 bytes cannot hold a CRC-32, left alone")
                                   .arg(entry.id)
                                   .arg(entry.size)});
            continue;
        }
        BlockRepair repair;
        repair.index = i;
        repair.id = entry.id;
        repair.offset = entry.offset;
        repair.name = image.name(i);
        QByteArray block = bytes.mid(entry.offset, entry.size);
        if (!entry.crcOk) {
            repair.crc = true;
            repair.crcBefore = entry.storedCrc;
            repair.crcAfter = entry.computedCrc;
            header::writeCrc32(block, 0, repair.crcAfter);
        }
        repair.checksumBefore = entry.storedChecksum;
        repair.checksumAfter =
            checks::blockChecksum(at(block, 0), static_cast<std::size_t>(block.size()));
        repair.checksum = repair.checksumAfter != repair.checksumBefore;
        header::writeChecksum(block, 0, repair.checksumAfter);
        plan.replace.insert(i, block);
        plan.repairs.append(repair);
    }
    for (const ImageProblem& problem : image.chainProblems())
        plan.notes.append(
            {problem.offset, problem.code, problem.text + QStringLiteral(", left alone")});
    return plan;
}

} // namespace Tupsim
