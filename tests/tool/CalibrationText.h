// Edits of an exported calibration file, made the way a user would make them in an editor.
#pragma once

#include <QString>
#include <QStringList>

namespace Tupsim {
namespace test {

// Where, inside the section that follows the line starting with `idLine`, the first line
// starting with `linePrefix` stands; -1 when there is none.
inline int lineIndex(const QStringList& lines, const QString& idLine, const QString& linePrefix) {
    int at = 0;
    while (at < lines.size() && !lines[at].startsWith(idLine))
        ++at;
    for (++at; at < lines.size() && !lines[at].startsWith(QLatin1String("ID:")); ++at)
        if (lines[at].startsWith(linePrefix))
            return at;
    return -1;
}

// That line replaced by `replacement`; empty when there is no such line.
inline QString replaceLine(const QString& text, const QString& idLine, const QString& linePrefix,
                           const QString& replacement) {
    QStringList lines = text.split(QLatin1Char('\n'));
    const int at = lineIndex(lines, idLine, linePrefix);
    if (at < 0)
        return QString();
    lines[at] = replacement;
    return lines.join(QLatin1Char('\n'));
}

// That line as it stands; empty when there is none.
inline QString lineOf(const QString& text, const QString& idLine, const QString& linePrefix) {
    const QStringList lines = text.split(QLatin1Char('\n'));
    return lines.value(lineIndex(lines, idLine, linePrefix));
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
