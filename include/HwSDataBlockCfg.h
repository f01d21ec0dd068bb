// What the debug pages of a self-describing block show besides the block itself.
#pragma once

#include <QString>
#include <QtGlobal>

namespace Tupsim {

struct HwSDataBlockCfg {
    QString blockName; // summary page; empty prints the block's USER_ name
    QString date;      // summary page
    qint32 sector = 0;
    qint32 address = 0;         // EEPROM address of the block, printed in hexadecimal
    QString columnDescriptions; // one text per column, split at descriptionSeparator
    QString descriptionSeparator = QStringLiteral(";");
};

} // namespace Tupsim
