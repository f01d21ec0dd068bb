// Edits of an exported calibration file, made the way a user would make them in an editor.
#pragma once

#include <QString>
#include <QStringList>

namespace Tupsim {
namespace test {

// Replaces, inside the section that follows the line starting with `idLine`, the first line
// starting with `linePrefix` by `replacement`. Empty when there is no such line.
inline QString replaceLine(const QString& text, const QString& idLine, const QString& linePrefix,
                           const QString& replacement) {
    QStringList lines = text.split(QLatin1Char('\n'));
    int at = 0;
    while (at < lines.size() && !lines[at].startsWith(idLine))
        ++at;
    for (++at; at < lines.size() && !lines[at].startsWith(QLatin1String("ID:")); ++at)
        if (lines[at].startsWith(linePrefix)) {
            lines[at] = replacement;
            return lines.join(QLatin1Char('\n'));
        }
    return QString();
}

// The line of that section as it stands; empty when there is none.
inline QString lineOf(const QString& text, const QString& idLine, const QString& linePrefix) {
    const QStringList lines = text.split(QLatin1Char('\n'));
    int at = 0;
    while (at < lines.size() && !lines[at].startsWith(idLine))
        ++at;
    for (++at; at < lines.size() && !lines[at].startsWith(QLatin1String("ID:")); ++at)
        if (lines[at].startsWith(linePrefix))
            return lines[at];
    return QString();
}

// Replaces value `column` (counted from 0) of a "row: <tab>v<tab>v..." line.
inline QString withValue(const QString& line, int column, const QString& value) {
    QStringList fields = line.split(QLatin1Char('\t'));
    if (column + 1 < fields.size())
        fields[column + 1] = value;
    return fields.join(QLatin1Char('\t'));
}

} // namespace test
} // namespace Tupsim
