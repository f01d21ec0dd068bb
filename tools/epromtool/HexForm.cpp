// Hexadecimal renderings of block bytes.
#include "HexForm.h"

namespace epromtool {

namespace {
constexpr int BytesPerLine = 16;
}

QStringList HexForm::commentLines(const QByteArray& bytes) {
    QStringList lines;
    for (int at = 0; at < bytes.size(); at += BytesPerLine)
        lines << QStringLiteral("# ") + QString::fromLatin1(bytes.mid(at, BytesPerLine).toHex(' '));
    return lines;
}

QStringList HexForm::dump(const QByteArray& bytes) {
    QStringList lines;
    for (int at = 0; at < bytes.size(); at += BytesPerLine) {
        QString line = QStringLiteral("%1 ").arg(at, 4, 16, QLatin1Char('0'));
        for (int i = at; i < at + BytesPerLine && i < bytes.size(); ++i) {
            // An extra blank splits each line into two groups of eight.
            line += (i - at == 8) ? QStringLiteral("  ") : QStringLiteral(" ");
            line += QStringLiteral("%1").arg(static_cast<unsigned char>(bytes.at(i)), 2, 16,
                                             QLatin1Char('0'));
        }
        lines << line;
    }
    return lines;
}

} // namespace epromtool
