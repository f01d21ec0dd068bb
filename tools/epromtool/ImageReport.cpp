// A whole image read from disk, walked and checked block by block.
#include "ImageReport.h"

#include "BlockCatalogue.h"
#include "BlockCheck.h"
#include "ChainWalker.h"
#include "ExitCode.h"
#include "InputFile.h"

namespace epromtool {

bool ImageReport::load(const QString& path, BlockCatalogue& catalogue) {
    imagePath = path;
    if (!InputFile::read(path, content, error))
        return false;
    walked = ChainWalker::walk(content);
    for (const BlockEntry& entry : walked.blocks) {
        BlockReport report;
        report.entry = entry;
        report.status = BlockCheck::check(entry);
        report.className = catalogue.className(entry.image);
        report.textId = catalogue.textId(entry.image);
        reports.append(report);
    }
    return true;
}

QVector<Problem> ImageReport::problems() const {
    QVector<Problem> found;
    for (const BlockReport& report : reports) {
        const BlockStatus& s = report.status;
        const QString block = QStringLiteral("block %1: ").arg(report.entry.id);
        if (!s.checksumOk)
            found.append({report.entry.offset,
                          block + QStringLiteral("checksum BAD (stored %1, computed %2)")
                                      .arg(hex16(s.storedChecksum), hex16(s.computedChecksum))});
        // A block of 11 bytes or less fails even where the bytes it has agree.
        if (!s.crcOk && report.entry.size <= 11)
            found.append({report.entry.offset,
                          block + QStringLiteral("CRC-32 BAD (%1 bytes cannot hold one)")
                                      .arg(report.entry.size)});
        else if (!s.crcOk)
            found.append(
                {report.entry.offset, block + QStringLiteral("CRC-32 BAD (stored %1, computed %2)")
                                                  .arg(hex32(s.storedCrc), hex32(s.computedCrc))});
    }
    return found + walked.chainProblems;
}

int ImageReport::exitCode() const {
    if (walked.broken())
        return ExitUnreadable;
    for (const BlockReport& report : reports)
        if (!report.status.ok())
            return ExitChecksum;
    return ExitOk;
}

} // namespace epromtool
