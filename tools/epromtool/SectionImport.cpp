// Reads calibration file sections back into blocks, in a child process.
#include "SectionImport.h"

#include "BlockCatalogue.h"
#include "CoutCapture.h"
#include "IsolatedRun.h"

#include <QDataStream>
#include <QIODevice>
#include <sstream>

namespace epromtool {

bool SectionImport::run(BlockCatalogue& catalogue, const QVector<BlockEntry>& blocks,
                        const QVector<int>& indexes, const QByteArray& calibrationText,
                        QVector<Parsed>& parsed, QString& error) {
    parsed.clear();
    if (indexes.isEmpty())
        return true; // nothing to read: no reason to start a child
    const IsolatedRun::Outcome outcome = IsolatedRun::run([&]() {
        std::istringstream in(calibrationText.toStdString());
        QByteArray result;
        QDataStream stream(&result, QIODevice::WriteOnly);
        for (int index : indexes) {
            SectionRead read;
            std::string messages;
            {
                const CoutCapture capture;
                read = catalogue.parse(blocks.value(index).image, in);
                messages = capture.text();
            }
            stream << qint32(index) << qint32(read.outcome) << read.image << read.note
                   << QString::fromStdString(messages);
        }
        return result;
    });
    if (!outcome.completed) {
        error = QStringLiteral("the calibration reader stopped: %1").arg(outcome.error);
        return false;
    }
    QDataStream stream(outcome.result);
    for (int i = 0; i < indexes.size(); ++i) {
        Parsed entry;
        qint32 index = 0;
        qint32 outcome = 0;
        stream >> index >> outcome >> entry.read.image >> entry.read.note >> entry.messages;
        entry.index = index;
        entry.read.outcome = static_cast<SectionRead::Outcome>(outcome);
        if (stream.status() != QDataStream::Ok || index != indexes[i] ||
            outcome < SectionRead::Read || outcome > SectionRead::NotImportable) {
            error = QStringLiteral("the calibration reader handed back a damaged result");
            parsed.clear();
            return false;
        }
        parsed.append(entry);
    }
    return true;
}

} // namespace epromtool
