// One block of an image with the outcome of its checks and the names the catalogue gives it.
#pragma once

#include "BlockEntry.h"
#include "BlockStatus.h"

#include <QString>

namespace epromtool {

struct BlockReport {
    BlockEntry entry;
    BlockStatus status;
    QString className;
    QString textId;

    // The text id where the block has one, else its class.
    QString name() const { return textId.isEmpty() ? className : textId; }
};

} // namespace epromtool
