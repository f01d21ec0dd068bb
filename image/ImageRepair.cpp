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
            plan.refused.append({entry.offset, QStringLiteral("block %1: %2 bytes cannot hold a "
                                                              "CRC-32, left alone")
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
        plan.repairs.append(repair);
    }
    for (const ImageProblem& problem : image.chainProblems())
        plan.refused.append({problem.offset, problem.text + QStringLiteral(", left alone")});
    return plan;
}

bool applyRepair(EepromImage& image, const RepairPlan& plan, QString& error) {
    if (plan.repairs.isEmpty())
        return true;
    QByteArray bytes = image.bytes();
    for (const BlockRepair& repair : plan.repairs) {
        const auto offset = static_cast<std::uint64_t>(repair.offset);
        const bool fits = (!repair.crc || header::writeCrc32(bytes, offset, repair.crcAfter)) &&
                          header::writeChecksum(bytes, offset, repair.checksumAfter);
        if (!fits) {
            error = QStringLiteral("block %1 at %2 lies outside the image")
                        .arg(repair.id)
                        .arg(hex16(static_cast<unsigned>(repair.offset)));
            return false;
        }
    }
    image = EepromImage::fromBytes(bytes, image.chainStart());
    return true;
}

} // namespace Tupsim
