// Works out which blocks of an image a calibration file replaces; reads everything first so
// that nothing needs to be written before the file is known to be readable.
#pragma once

#include "ImageReport.h"

#include <QMap>
#include <QStringList>

namespace epromtool {

class BlockCatalogue;

class CalibrationImport {
public:
    // Reads back every block whose class reads the ASCII form and whose section the file
    // holds. False, with `error`, when the reader did not finish.
    bool read(const ImageReport& report, BlockCatalogue& catalogue,
              const QByteArray& calibrationText, QString& error);

    // Position in the chain to the block's new bytes, for blocks that changed.
    const QMap<int, QByteArray>& replacements() const { return changed; }
    // One line per block looked up: what changed, or why nothing did; each followed by the
    // complaints its reader wrote, if any.
    const QStringList& outcome() const { return lines; }
    int lookedUp() const { return looked; }

private:
    QMap<int, QByteArray> changed;
    QStringList lines;
    int looked = 0;
};

} // namespace epromtool
