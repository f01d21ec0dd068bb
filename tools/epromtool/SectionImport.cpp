// Reads calibration file sections back into blocks, in a child process.
#include "SectionImport.h"

#include "BlockCatalogue.h"
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
            QByteArray image;
            const bool read = catalogue.parse(blocks.value(index).image, in, image);
            stream << qint32(index) << read << image;
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
        stream >> index >> entry.read >> entry.image;
        entry.index = index;
        if (stream.status() != QDataStream::Ok || index != indexes[i]) {
            error = QStringLiteral("the calibration reader handed back a damaged result");
            parsed.clear();
            return false;
        }
        parsed.append(entry);
    }
    return true;
}

} // namespace epromtool
