// Plain-text reports of an image: the block table and the verification lines.
#include "TextReport.h"

#include "core/HwBytes.h"

namespace epromtool {

namespace {

QString verdict(bool present, bool ok) {
    if (!present)
        return QStringLiteral("-");
    return ok ? QStringLiteral("ok") : QStringLiteral("BAD");
}

QString tableRow(const QString& offset, const QString& id, const QString& name, int nameWidth,
                 const QString& size, const QString& checksum, const QString& crc) {
    return QStringLiteral("%1  %2  %3  %4  %5  %6")
        .arg(offset.leftJustified(6), id.rightJustified(5), name.leftJustified(nameWidth),
             size.rightJustified(5), checksum.leftJustified(8), crc);
}

} // namespace

QString TextReport::blocksText(int count) {
    return count == 1 ? QStringLiteral("1 block") : QStringLiteral("%1 blocks").arg(count);
}

QStringList TextReport::listing(const ImageReport& report) {
    int nameWidth = 4;
    for (const BlockReport& block : report.blocks())
        nameWidth = qMax(nameWidth, block.name().size());

    QStringList lines;
    lines << tableRow(QStringLiteral("Offset"), QStringLiteral("Id"), QStringLiteral("Name"),
                      nameWidth, QStringLiteral("Size"), QStringLiteral("Checksum"),
                      QStringLiteral("CRC-32"));
    for (const BlockReport& block : report.blocks()) {
        const BlockStatus& s = block.status;
        lines << tableRow(hex16(static_cast<unsigned>(block.entry.offset)),
                          QString::number(block.entry.id), block.name(), nameWidth,
                          QString::number(block.entry.size), verdict(s.hasChecksum, s.checksumOk),
                          verdict(s.hasCrc, s.crcOk));
    }
    for (const Problem& problem : report.problems())
        lines << problem.line();

    const Chain& chain = report.chain();
    const QString blocks = blocksText(chain.dataBlockCount());
    if (chain.broken())
        lines << QStringLiteral("%1 read, chain broken at %2")
                     .arg(blocks, hex16(static_cast<unsigned>(chain.chainProblems.first().offset)));
    else
        lines << QStringLiteral("%1, end block at %2, %3 bytes used, %4 bytes free")
                     .arg(blocks, hex16(static_cast<unsigned>(chain.endOffset())))
                     .arg(chain.used)
                     .arg(chain.freeBytes());
    return lines;
}

QStringList TextReport::verification(const ImageReport& report) {
    QStringList lines;
    const QVector<Problem> problems = report.problems();
    for (const Problem& problem : problems)
        lines << problem.line();

    const Chain& chain = report.chain();
    const QString blocks = blocksText(chain.dataBlockCount());
    const QString problemCount = problems.size() == 1
                                     ? QStringLiteral("1 problem")
                                     : QStringLiteral("%1 problems").arg(problems.size());
    if (chain.broken())
        lines << QStringLiteral("FAILED: chain broken at %1 after %2, %3")
                     .arg(hex16(static_cast<unsigned>(chain.chainProblems.first().offset)), blocks,
                          problemCount);
    else if (!problems.isEmpty())
        lines << QStringLiteral("FAILED: %1 in %2, end block at %3")
                     .arg(problemCount, blocks, hex16(static_cast<unsigned>(chain.endOffset())));
    else
        lines << QStringLiteral("ok: %1 checked, end block at %2")
                     .arg(blocks, hex16(static_cast<unsigned>(chain.endOffset())));
    return lines;
}

QString TextReport::headline(const BlockReport& block) {
    const BlockStatus& s = block.status;
    QString line = QStringLiteral("block %1 at %2: %3")
                       .arg(QString::number(block.entry.id),
                            hex16(static_cast<unsigned>(block.entry.offset)), block.className);
    if (!block.textId.isEmpty())
        line += QLatin1Char(' ') + block.textId;
    line += QStringLiteral(", %1 bytes").arg(block.entry.size);
    if (s.hasChecksum)
        line += QStringLiteral(", alignment %1, checksum %2 %3")
                    .arg(QString::number(Tupsim::bytes::getLE<quint16>(block.entry.image, 6)),
                         hex16(s.storedChecksum), verdict(true, s.checksumOk));
    if (s.hasCrc)
        line += QStringLiteral(", CRC-32 %1 %2")
                    .arg(hex32(s.storedCrc), verdict(true, s.crcOk))
                    .append(s.eventCounter ? QStringLiteral(" (event counter)") : QString());
    return line;
}

} // namespace epromtool
