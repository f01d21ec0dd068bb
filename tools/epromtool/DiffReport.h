// Text and JSON forms of the differences between two images.
#pragma once

#include "BlockDifference.h"

#include <QJsonDocument>
#include <QStringList>

namespace epromtool {

class ImageReport;

class DiffReport {
public:
    DiffReport(const ImageReport& a, const ImageReport& b);

    QStringList text() const;
    QJsonDocument json() const;

private:
    const ImageReport& a;
    const ImageReport& b;
    QVector<BlockDifference> differences;
    bool freeSpaceDiffers;
};

} // namespace epromtool
