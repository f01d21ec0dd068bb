// What epromtool prints: reports of images, differences and imports as text and as JSON, on
// standard output, and complaints on standard error.
#pragma once

#include "CommandLine.h"

#include <EepromImage.h>
#include <ImageDiff.h>
#include <ImageImport.h>
#include <ImageRepair.h>
#include <QJsonDocument>
#include <QStringList>
#include <RecordEdit.h>
#include <string>

namespace epromtool {

void out(const QString& line);
void out(const QStringList& lines);
void out(const std::string& text);
void out(const QJsonDocument& document);
// "epromtool: " followed by the text, on standard error.
void error(const QString& text);
// Reads the image at `path` (its chain starting at `chainStart`); when the file cannot be read,
// the exit code to stop with, after one line on standard error.
Stop loadImage(const QString& path, Tupsim::EepromImage& image, int chainStart);

// The worst exit code of the problems' codes: 2 for a broken chain, else 1 when a check
// failed, else 0.
int exitCodeOf(const QVector<Tupsim::ImageProblem>& problems);
int exitCodeOf(const Tupsim::EepromImage& image);
// "PATH: 0x0010: ..." on standard error for each problem.
void complain(const QString& path, const QVector<Tupsim::ImageProblem>& problems);

// One row per block, then every problem, then a summary line.
std::string listing(const Tupsim::EepromImage& image);
QJsonDocument listingJson(const QString& path, const Tupsim::EepromImage& image);
// Only the problems, then one summary line.
QStringList verification(const Tupsim::EepromImage& image);
QJsonDocument verificationJson(const QString& path, const Tupsim::EepromImage& image);
// "block 10000 at 0x0010: HwDatablock, 16 bytes, alignment 0, checksum 0x1234 ok".
QString headline(const Tupsim::EepromImage& image, int index);
// The chosen blocks, each with its bytes in hexadecimal.
QJsonDocument showJson(const QString& path, const Tupsim::EepromImage& image,
                       const QVector<int>& chosen);
// Offset, then sixteen bytes in two groups of eight, per line.
QStringList hexDump(const QByteArray& bytes);

QStringList diffText(const Tupsim::EepromImage& a, const Tupsim::ImageDiff& diff);
QJsonDocument diffJson(const QString& pathA, const Tupsim::EepromImage& a, const QString& pathB,
                       const Tupsim::EepromImage& b, const Tupsim::ImageDiff& diff);

// One line per block looked up, each followed by its reader's complaints, then one line per
// section that is not read back.
QStringList importLines(const Tupsim::ImportPlan& plan);
QJsonDocument importJson(const QString& path, const QString& calibrationPath,
                         const Tupsim::ImportPlan& plan, int blockCount, const QString& written);

// The block set, then one line per field with its old and new value, then the checksum.
QStringList editLines(const Tupsim::RecordEdit& edit);
QJsonDocument editJson(const QString& path, const Tupsim::RecordEdit& edit, const QString& written);
// One line per repaired block with its old and new checksum and CRC-32, then a count.
QStringList repairLines(const Tupsim::RepairPlan& plan);

} // namespace epromtool
