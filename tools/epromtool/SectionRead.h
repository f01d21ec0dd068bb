// What reading one block's section of a calibration file gave.
#pragma once

#include <QByteArray>
#include <QString>

namespace epromtool {

struct SectionRead {
    enum Outcome {
        Read,          // `image` holds the block as the file describes it
        Unreadable,    // the reader did not find or could not read the section
        NotImportable, // the block cannot be read back faithfully; `note` says why
    };
    Outcome outcome = Unreadable;
    QByteArray image;
    QString note;
};

} // namespace epromtool
