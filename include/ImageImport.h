// Reading an ASCII calibration file back into an EEPROM image: first a plan of what each block
// would become, then, when nothing in the file was malformed, applying it.
#pragma once

#include "ImagePlan.h"

#include <QStringList>

namespace Tupsim {

// How a calibration table changed, counted in the table's own terms.
struct EPROMDATABLOCK_EXPORT TableChange {
    quint32 rowsBefore = 0;
    quint32 colsBefore = 0;
    quint32 rowsAfter = 0;
    quint32 colsAfter = 0;
    int cells = 0;       // cells within the capacity whose value differs
    int indexes = 0;     // row index words that differ (index tables)
    int descriptors = 0; // descriptors that differ (tables with descriptors)

    // "3 cells changed, counts 4*10 -> 4*11, 1 index changed".
    QString text() const;
    // For a read-back that should have changed nothing: "reads back 1 cell and the counts
    // differently", or "does not read back to the same bytes" when no cell, count, index or
    // descriptor tells the difference.
    QString differences() const;
};

// What the file does to one block of the image.
struct ImportedBlock {
    enum Outcome {
        Unchanged,     // the section reads back to the stored bytes
        Changed,       // `after` holds the block as the file describes it
        NotImportable, // the block cannot be replaced from its section; `note` says why
    };
    int index = 0; // in the image's chain
    quint16 id = 0;
    int offset = 0;
    QString name; // the section's name
    Outcome outcome = Unchanged;
    QString note;           // Changed: what changed; NotImportable: why not
    QByteArray before;      // the stored block
    QByteArray after;       // Changed: the new block
    QStringList complaints; // what the reader had to say about the section, summarised
};

// A section of the file that the import does not read back.
struct SkippedSection {
    QString name;
    int line = 0; // of its "ID:" line
    QString
        reason; // "identification blocks are not imported", "no block of the image has this name"
};

// Not ok when a section is malformed (BadText, or Corrupt for a block that reads back
// failing its checks, or the code of a record field that refuses its value): nothing may be
// written, and the message names the section, the line and what was wrong. The changed blocks
// are in `replace`.
struct EPROMDATABLOCK_EXPORT ImportPlan : ImagePlan {
    QVector<ImportedBlock> blocks; // every table block with a section in the file, chain order
    QVector<SkippedSection> skipped;

    int changedCount() const { return replace.size(); }
};

// Reads every calibration table of `image` whose class reads its section back and whose
// section `calibrationText` holds. Tables whose values only round in their text form take the
// edited cells alone; blocks that are not importable pass through untouched. Applied with
// applyPlan.
EPROMDATABLOCK_EXPORT ImportPlan planImport(const EepromImage& image,
                                            const QByteArray& calibrationText);

} // namespace Tupsim
