// The sections of a calibration file, known by the name that follows each "ID:".
#include "CalibrationFile.h"

#include <QList>

namespace epromtool {

CalibrationFile::CalibrationFile(const QByteArray& text) {
    // Words are separated by any white space, as the calibration readers see them.
    const QList<QByteArray> words = text.simplified().split(' ');
    for (int i = 0; i + 1 < words.size(); ++i)
        if (words[i] == "ID:")
            names.insert(QString::fromLatin1(words[i + 1]));
}

} // namespace epromtool
