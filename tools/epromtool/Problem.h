// One thing found wrong in an image, tied to the offset where it was found.
#pragma once

#include <QString>

namespace epromtool {

struct Problem {
    int offset = 0;
    QString text;

    // "0x0010: text", the form every report uses.
    QString line() const;
};

// Offsets and 16-bit values as 0x followed by four hexadecimal digits.
QString hex16(unsigned value);
// 32-bit values as 0x followed by eight hexadecimal digits.
QString hex32(unsigned value);

} // namespace epromtool
