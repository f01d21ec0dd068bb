// The reading commands over several images: each image rendered as it comes, then one summary.
#include "Batch.h"

#include "Reports.h"

#include <ImageExport.h>
#include <QJsonArray>
#include <iostream>

namespace epromtool {

namespace {

const QString kRecursive = QStringLiteral("recursive");

QJsonObject unreadableJson(const Tupsim::BatchItem& item) {
    return QJsonObject{{QStringLiteral("image"), item.path},
                       {QStringLiteral("readable"), false},
                       {QStringLiteral("error"), item.reason},
                       {QStringLiteral("exitCode"), exitCodeOf(Tupsim::ResultCode::Unreadable)}};
}

// A path inside a comment line of a calibration file: a line break in a file name must not
// start a line that a reader keys on.
QString commentSafe(QString text) {
    for (QChar& c : text)
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            c = QLatin1Char('?');
    return text;
}

} // namespace

void addBatchArguments(CommandLine& line, const QString& name) {
    line.addOptionalArguments(QStringLiteral("[%1...]").arg(name),
                              QStringLiteral("Further images; with -r, directories too."));
    line.addOption({{QStringLiteral("r"), kRecursive},
                    QStringLiteral("Walk directories: every file below them, in name order, "
                                   "symbolic links not followed.")});
}

bool isBatch(const CommandLine& line) {
    return line.isSet(kRecursive) || !line.rest().isEmpty();
}

QStringList imagePaths(const CommandLine& line) {
    return QStringList{line.argument(0)} + line.rest();
}

int exitCodeOf(const Tupsim::BatchItem& item) {
    return item.readable ? exitCodeOf(item.image)
                         : static_cast<int>(exitCodeOf(Tupsim::ResultCode::Unreadable));
}

QStringList linesOf(const std::string& text) {
    QStringList lines = QString::fromStdString(text).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QString tallyLine(const Tupsim::BatchTally& tally) {
    return QStringLiteral("%1: %2 ok, %3 failed checks, %4 broken chain, %5 unreadable")
        .arg(tally.total() == 1 ? QStringLiteral("1 image")
                                : QStringLiteral("%1 images").arg(tally.total()))
        .arg(tally.ok)
        .arg(tally.failedChecks)
        .arg(tally.brokenChain)
        .arg(tally.unreadable);
}

QJsonObject tallyJson(const Tupsim::BatchTally& tally) {
    return QJsonObject{{QStringLiteral("images"), tally.total()},
                       {QStringLiteral("ok"), tally.ok},
                       {QStringLiteral("failedChecks"), tally.failedChecks},
                       {QStringLiteral("brokenChain"), tally.brokenChain},
                       {QStringLiteral("unreadable"), tally.unreadable}};
}

JsonStream::JsonStream() {
    std::cout << "{\n  \"images\": [";
}

void JsonStream::add(const QJsonObject& entry) {
    std::cout << (first ? "\n    " : ",\n    ")
              << QJsonDocument(entry).toJson(QJsonDocument::Compact).constData();
    first = false;
}

void JsonStream::finish(const Tupsim::BatchTally& tally, int exitCode) {
    std::cout << (first ? "],\n" : "\n  ],\n") << "  \"summary\": "
              << QJsonDocument(tallyJson(tally)).toJson(QJsonDocument::Compact).constData()
              << ",\n  \"exitCode\": " << exitCode << "\n}\n";
    std::cout.flush();
}

int runBatchReport(const CommandLine& line, int chainStart,
                   const std::function<QStringList(const Tupsim::EepromImage&)>& text,
                   QJsonDocument (*json)(const QString&, const Tupsim::EepromImage&)) {
    int code = ExitOk;
    if (line.json()) {
        JsonStream stream;
        const Tupsim::BatchTally tally =
            Tupsim::imageBatch::forEachImage(imagePaths(line), line.isSet(kRecursive), chainStart,
                                             [&](const Tupsim::BatchItem& item) {
                                                 code = worse(code, exitCodeOf(item));
                                                 if (!item.readable) {
                                                     stream.add(unreadableJson(item));
                                                     return;
                                                 }
                                                 QJsonObject entry =
                                                     json(item.path, item.image).object();
                                                 entry[QStringLiteral("readable")] = true;
                                                 stream.add(entry);
                                             });
        stream.finish(tally, code);
        return code;
    }
    const Tupsim::BatchTally tally = Tupsim::imageBatch::forEachImage(
        imagePaths(line), line.isSet(kRecursive), chainStart, [&](const Tupsim::BatchItem& item) {
            code = worse(code, exitCodeOf(item));
            out(item.path + QLatin1Char(':'));
            if (!item.readable) {
                out(QStringLiteral("  unreadable: ") + item.reason);
                return;
            }
            for (const QString& lineText : text(item.image))
                out(QStringLiteral("  ") + lineText);
        });
    out(tallyLine(tally));
    std::cout.flush();
    return code;
}

bool reportMissingIds(const QString& path, const Tupsim::EepromImage& image,
                      const QSet<quint16>& ids) {
    QSet<quint16> missing = ids;
    for (int i = 0; i < image.blockCount(); ++i)
        missing.remove(image.block(i).id);
    for (quint16 id : missing)
        error(QStringLiteral("%1: no block with id %2").arg(path).arg(id));
    return !missing.isEmpty();
}

int runBatchExport(const CommandLine& line, int chainStart, const QSet<quint16>& ids) {
    int code = ExitOk;
    const Tupsim::BatchTally tally = Tupsim::imageBatch::forEachImage(
        imagePaths(line), line.isSet(kRecursive), chainStart, [&](const Tupsim::BatchItem& item) {
            std::cout << "# " << commentSafe(item.path).toStdString() << '\n';
            if (!item.readable) {
                error(QStringLiteral("cannot read %1: %2").arg(item.path, item.reason));
                code = worse(code, exitCodeOf(Tupsim::ResultCode::Unreadable));
                return;
            }
            const Tupsim::EepromImage& image = item.image;
            complain(item.path, image.problems());
            if (image.chainBroken()) {
                error(QStringLiteral("%1: the chain is broken, nothing exported").arg(item.path));
                code = worse(code, exitCodeOf(Tupsim::ResultCode::ChainBroken));
                return;
            }
            if (reportMissingIds(item.path, image, ids)) {
                code = worse(code, exitCodeOf(Tupsim::ResultCode::UnknownBlock));
                return;
            }
            std::cout << Tupsim::exportImage(image, ids);
            code = worse(code, exitCodeOf(image));
        });
    std::cout << "# " << tallyLine(tally).toStdString() << '\n';
    std::cout.flush();
    return code;
}

} // namespace epromtool
