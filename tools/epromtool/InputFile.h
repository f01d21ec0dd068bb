// Reads a whole input file, or says in one line why it cannot.
#pragma once

#include <QByteArray>
#include <QString>

namespace epromtool {

class InputFile {
public:
    // Far above any module's EEPROM; keeps a wrong path to a huge file from eating memory.
    static constexpr qint64 MaxSize = 16 * 1024 * 1024;

    // On failure `error` is "cannot read PATH: REASON".
    static bool read(const QString& path, QByteArray& content, QString& error);
};

} // namespace epromtool
