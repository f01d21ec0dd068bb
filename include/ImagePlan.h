// The one shape of every plan that changes an image (import, record edit, repair): how planning
// went, the blocks to replace and what is left alone; every plan is applied by applyPlan.
#pragma once

#include "EepromImage.h"

#include <QMap>

namespace Tupsim {

struct EPROMDATABLOCK_EXPORT ImagePlan {
    // Not ok when something was malformed or refused: then nothing may be written, and the
    // message names what and where.
    Outcome outcome;
    // Position in the chain to the new bytes of every block the plan changes.
    QMap<int, QByteArray> replace;
    // What the plan leaves alone, by offset, and why.
    QVector<ImageProblem> notes;

    bool ok() const { return outcome.ok(); }
};

// Replaces the blocks of `plan` (made from `image`) all or nothing. The plan's own outcome when
// it is not ok; else what EepromImage::replaceBlocks says. In a broken chain, where the chain
// cannot be rebuilt, only blocks that keep their id and size are written, in place.
EPROMDATABLOCK_EXPORT Outcome applyPlan(EepromImage& image, const ImagePlan& plan);

} // namespace Tupsim
