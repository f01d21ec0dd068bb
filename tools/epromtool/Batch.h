// The reading commands over several images: -r, the further IMAGE arguments, and the reports
// that print each image under its path and end with one summary line.
#pragma once

#include "CommandLine.h"

#include <EepromImage.h>
#include <ImageBatch.h>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringList>
#include <functional>

namespace epromtool {

// [IMAGE...] (or the given name) behind the first image, and -r/--recursive.
void addBatchArguments(CommandLine& line, const QString& name = QStringLiteral("IMAGE"));
// True when the command works on several images: more than one IMAGE is named, or -r.
bool isBatch(const CommandLine& line);
// Every IMAGE named, in order.
QStringList imagePaths(const CommandLine& line);

// 2 for an unreadable image, else the image's own exit code.
int exitCodeOf(const Tupsim::BatchItem& item);
// "3 images: 1 ok, 1 failed checks, 0 broken chain, 1 unreadable".
QString tallyLine(const Tupsim::BatchTally& tally);
QJsonObject tallyJson(const Tupsim::BatchTally& tally);

// Streams one JSON document {"images": [...], "summary": {...}, "exitCode": N}, one entry per
// line, so that nothing is kept from one image to the next.
class JsonStream {
public:
    JsonStream();
    void add(const QJsonObject& entry);
    void finish(const Tupsim::BatchTally& tally, int exitCode);

private:
    bool first = true;
};

// A report's text as lines.
inline QStringList linesOf(const QStringList& lines) {
    return lines;
}
QStringList linesOf(const std::string& text);

// list and verify over several images: each image's lines (from `text`) indented under
// "PATH:", or with --json one entry per image (from `json`), then the summary.
int runBatchReport(const CommandLine& line, int chainStart,
                   const std::function<QStringList(const Tupsim::EepromImage&)>& text,
                   QJsonDocument (*json)(const QString&, const Tupsim::EepromImage&));
// "PATH: no block with id N" on standard error for each of `ids` that the image lacks; true
// when one is missing.
bool reportMissingIds(const QString& path, const Tupsim::EepromImage& image,
                      const QSet<quint16>& ids);

// export over several images to standard output: each image's sections behind a comment line
// "# PATH", the summary as the last comment line; `ids` as for one image.
int runBatchExport(const CommandLine& line, int chainStart, const QSet<quint16>& ids);

} // namespace epromtool
