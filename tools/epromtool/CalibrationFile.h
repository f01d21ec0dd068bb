// The sections of a calibration file, known by the name that follows each "ID:".
#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

namespace epromtool {

class CalibrationFile {
public:
    explicit CalibrationFile(const QByteArray& text);
    bool hasSection(const QString& name) const { return !name.isEmpty() && names.contains(name); }

private:
    QSet<QString> names;
};

} // namespace epromtool
