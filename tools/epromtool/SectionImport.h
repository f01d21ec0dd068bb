// Reads calibration file sections back into blocks, in a child process: a malformed file may
// make the library's reader end the process, and that must not end this one.
#pragma once

#include "BlockEntry.h"
#include "SectionRead.h"

#include <QVector>

namespace epromtool {

class BlockCatalogue;

class SectionImport {
public:
    struct Parsed {
        int index = 0; // position of the block in the chain
        SectionRead read;
        QString messages; // what the reader wrote to standard output meanwhile
    };

    // Parses the blocks at `indexes` from `calibrationText`; false when the reader did not
    // finish, with `error` saying why.
    static bool run(BlockCatalogue& catalogue, const QVector<BlockEntry>& blocks,
                    const QVector<int>& indexes, const QByteArray& calibrationText,
                    QVector<Parsed>& parsed, QString& error);
};

} // namespace epromtool
