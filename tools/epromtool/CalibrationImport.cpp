// Works out which blocks of an image a calibration file replaces.
#include "CalibrationImport.h"

#include "BlockCatalogue.h"
#include "CalibrationFile.h"
#include "ChainDiff.h"
#include "SectionImport.h"

#include "core/HwBytes.h"

namespace epromtool {

namespace {

// "block 15731 at 0x0120 NAME: ..." for one looked-up block.
QString outcomeLine(const BlockReport& block, const SectionImport::Parsed& parsed) {
    const QString head = QStringLiteral("block %1 at %2 %3: ")
                             .arg(QString::number(block.entry.id),
                                  hex16(static_cast<unsigned>(block.entry.offset)), block.textId);
    if (!parsed.read)
        return head + QStringLiteral("could not be read, left as it was");
    if (parsed.image == block.entry.image)
        return head + QStringLiteral("unchanged");
    using Tupsim::bytes::getLE;
    const int bytes = ChainDiff::payloadBytesChanged(block.entry.image, parsed.image);
    QString line = head + (bytes == 1 ? QStringLiteral("1 byte changed")
                                      : QStringLiteral("%1 bytes changed").arg(bytes));
    if (parsed.image.size() != block.entry.image.size())
        line += QStringLiteral(", size %1 -> %2").arg(block.entry.size).arg(parsed.image.size());
    return line + QStringLiteral(", checksum %1 -> %2")
                      .arg(hex16(getLE<quint16>(block.entry.image, 4)),
                           hex16(getLE<quint16>(parsed.image, 4)));
}

} // namespace

bool CalibrationImport::read(const ImageReport& report, BlockCatalogue& catalogue,
                             const QByteArray& calibrationText, QString& error) {
    changed.clear();
    lines.clear();
    const CalibrationFile sections(calibrationText);
    const QVector<BlockReport>& blocks = report.blocks();
    QVector<int> wanted;
    for (int i = 0; i < blocks.size(); ++i)
        if (!blocks[i].entry.isEnd && catalogue.readsAscii(blocks[i].entry.image) &&
            sections.hasSection(blocks[i].textId))
            wanted.append(i);

    QVector<SectionImport::Parsed> parsed;
    if (!SectionImport::run(catalogue, report.chain().blocks, wanted, calibrationText, parsed,
                            error))
        return false;
    for (const SectionImport::Parsed& entry : parsed) {
        const BlockReport& block = blocks[entry.index];
        lines << outcomeLine(block, entry);
        if (entry.read && entry.image != block.entry.image)
            changed.insert(entry.index, entry.image);
    }
    return true;
}

} // namespace epromtool
