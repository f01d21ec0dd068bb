// Machine-readable (JSON) reports of an image for list, verify and show.
#pragma once

#include "ImageReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace epromtool {

class JsonReport {
public:
    static QJsonObject block(const BlockReport& block);
    static QJsonArray problems(const QVector<Problem>& problems);
    static QJsonDocument listing(const ImageReport& report);
    static QJsonDocument verification(const ImageReport& report);
    // The chosen blocks, each with its bytes in hexadecimal.
    static QJsonDocument show(const ImageReport& report, const QVector<BlockReport>& chosen);
};

} // namespace epromtool
