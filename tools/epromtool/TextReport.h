// Plain-text reports of an image: the block table and the verification lines.
#pragma once

#include "ImageReport.h"

#include <QStringList>

namespace epromtool {

class TextReport {
public:
    // One row per block, then every problem, then a summary line.
    static QStringList listing(const ImageReport& report);
    // Only the problems, then one summary line.
    static QStringList verification(const ImageReport& report);
    // "block 10000 at 0x0010: HwDatablock, 16 bytes, alignment 0, checksum 0x1234 ok".
    static QString headline(const BlockReport& block);
    // "3 blocks" or "1 block".
    static QString blocksText(int count);
};

} // namespace epromtool
