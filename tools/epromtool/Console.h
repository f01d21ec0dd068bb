// Where the tool's text goes: reports to standard output, errors to standard error.
#pragma once

#include <QJsonDocument>
#include <QStringList>

namespace epromtool {

class Console {
public:
    static void out(const QString& line);
    static void out(const QStringList& lines);
    static void out(const QJsonDocument& document);
    // "epromtool: " followed by the text.
    static void error(const QString& text);
};

} // namespace epromtool
