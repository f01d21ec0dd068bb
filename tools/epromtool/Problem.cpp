// Text forms of problems and hexadecimal numbers.
#include "Problem.h"

namespace epromtool {

QString hex16(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0'));
}

QString hex32(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 8, 16, QLatin1Char('0'));
}

QString Problem::line() const {
    return hex16(static_cast<unsigned>(offset)) + QStringLiteral(": ") + text;
}

} // namespace epromtool
