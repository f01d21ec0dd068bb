// Machine-readable (JSON) reports of an image for list, verify and show.
#include "JsonReport.h"

#include "core/HwBytes.h"

namespace epromtool {

namespace {

QJsonValue endOffset(const Chain& chain) {
    return chain.broken() ? QJsonValue() : QJsonValue(chain.endOffset());
}

// What every report says about the image as a whole.
QJsonObject imageObject(const ImageReport& report) {
    QJsonObject object;
    object[QStringLiteral("image")] = report.path();
    object[QStringLiteral("imageSize")] = report.chain().imageSize;
    object[QStringLiteral("problems")] = JsonReport::problems(report.problems());
    object[QStringLiteral("exitCode")] = report.exitCode();
    return object;
}

} // namespace

QJsonObject JsonReport::block(const BlockReport& block) {
    const BlockStatus& s = block.status;
    QJsonObject object;
    object[QStringLiteral("offset")] = block.entry.offset;
    object[QStringLiteral("id")] = block.entry.id;
    object[QStringLiteral("className")] = block.className;
    object[QStringLiteral("textId")] = block.textId;
    object[QStringLiteral("size")] = block.entry.size;
    object[QStringLiteral("end")] = block.entry.isEnd;
    object[QStringLiteral("alignment")] = Tupsim::bytes::getLE<quint16>(block.entry.image, 6);
    QJsonValue checksum;
    if (s.hasChecksum)
        checksum = QJsonObject{{QStringLiteral("stored"), s.storedChecksum},
                               {QStringLiteral("computed"), s.computedChecksum},
                               {QStringLiteral("ok"), s.checksumOk}};
    object[QStringLiteral("checksum")] = checksum;
    QJsonValue crc;
    if (s.hasCrc)
        crc = QJsonObject{{QStringLiteral("stored"), static_cast<qint64>(s.storedCrc)},
                          {QStringLiteral("computed"), static_cast<qint64>(s.computedCrc)},
                          {QStringLiteral("ok"), s.crcOk},
                          {QStringLiteral("eventCounter"), s.eventCounter}};
    object[QStringLiteral("crc32")] = crc;
    return object;
}

QJsonArray JsonReport::problems(const QVector<Problem>& problems) {
    QJsonArray array;
    for (const Problem& problem : problems)
        array.append(QJsonObject{{QStringLiteral("offset"), problem.offset},
                                 {QStringLiteral("message"), problem.text}});
    return array;
}

QJsonDocument JsonReport::listing(const ImageReport& report) {
    QJsonObject object = imageObject(report);
    QJsonArray blocks;
    for (const BlockReport& entry : report.blocks())
        blocks.append(block(entry));
    object[QStringLiteral("blocks")] = blocks;
    object[QStringLiteral("endOffset")] = endOffset(report.chain());
    object[QStringLiteral("used")] = report.chain().used;
    object[QStringLiteral("free")] = report.chain().freeBytes();
    return QJsonDocument(object);
}

QJsonDocument JsonReport::verification(const ImageReport& report) {
    QJsonObject object = imageObject(report);
    object[QStringLiteral("blocks")] = report.chain().dataBlockCount();
    object[QStringLiteral("endOffset")] = endOffset(report.chain());
    object[QStringLiteral("ok")] = report.exitCode() == 0;
    return QJsonDocument(object);
}

QJsonDocument JsonReport::show(const ImageReport& report, const QVector<BlockReport>& chosen) {
    QJsonObject object = imageObject(report);
    QJsonArray blocks;
    for (const BlockReport& entry : chosen) {
        QJsonObject shown = block(entry);
        shown[QStringLiteral("hex")] = QString::fromLatin1(entry.entry.image.toHex());
        blocks.append(shown);
    }
    object[QStringLiteral("blocks")] = blocks;
    return QJsonDocument(object);
}

} // namespace epromtool
