// Works out which blocks of an image a calibration file replaces.
#include "CalibrationImport.h"

#include "BlockCatalogue.h"
#include "CalibrationFile.h"
#include "SectionImport.h"

#include "core/HwBytes.h"

namespace epromtool {

namespace {

// "block 15731 at 0x0120 NAME: ..." for one looked-up block, then what its reader wrote.
QStringList outcomeLines(BlockCatalogue& catalogue, const BlockReport& block,
                         const SectionImport::Parsed& parsed) {
    using Tupsim::bytes::getLE;
    const QString head = QStringLiteral("block %1 at %2 %3: ")
                             .arg(QString::number(block.entry.id),
                                  hex16(static_cast<unsigned>(block.entry.offset)), block.textId);
    const QByteArray& image = parsed.read.image;
    QString line;
    if (parsed.read.outcome == SectionRead::NotImportable)
        line = QStringLiteral("not importable, %1; left as it was").arg(parsed.read.note);
    else if (parsed.read.outcome != SectionRead::Read)
        line = QStringLiteral("could not be read, left as it was");
    else if (image == block.entry.image)
        line = QStringLiteral("unchanged");
    else {
        line = catalogue.describeChange(block.entry.image, image);
        if (image.size() != block.entry.image.size())
            line += QStringLiteral(", size %1 -> %2").arg(block.entry.size).arg(image.size());
        line +=
            QStringLiteral(", checksum %1 -> %2")
                .arg(hex16(getLE<quint16>(block.entry.image, 4)), hex16(getLE<quint16>(image, 4)));
    }
    QStringList lines{head + line};
    for (const QString& message : parsed.messages.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines << QStringLiteral("  reader: ") + message;
    return lines;
}

} // namespace

bool CalibrationImport::read(const ImageReport& report, BlockCatalogue& catalogue,
                             const QByteArray& calibrationText, QString& error) {
    changed.clear();
    lines.clear();
    looked = 0;
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
        lines << outcomeLines(catalogue, block, entry);
        ++looked;
        if (entry.read.outcome == SectionRead::Read && entry.read.image != block.entry.image)
            changed.insert(entry.index, entry.read.image);
    }
    return true;
}

} // namespace epromtool
