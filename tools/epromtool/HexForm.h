// Hexadecimal renderings of block bytes.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace epromtool {

class HexForm {
public:
    // "# 10 27 ..." lines of 16 bytes: comment lines with nothing a calibration reader keys on.
    static QStringList commentLines(const QByteArray& bytes);
    // "0000  10 27 ...  ..." lines of 16 bytes with their offset inside the block.
    static QStringList dump(const QByteArray& bytes);
};

} // namespace epromtool
