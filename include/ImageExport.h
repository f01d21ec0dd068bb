// An EEPROM image written as an ASCII calibration file, block by block.
#pragma once

#include "EepromImage.h"

#include <QSet>
#include <string>

namespace Tupsim {

// The section of one block in the form of its own class. Blocks without a text form of their
// own, and tables whose counts exceed their capacity, are written as comment lines of
// hexadecimal bytes under "# CLASS ID, SIZE bytes".
EPROMDATABLOCK_EXPORT std::string exportBlock(const EepromImage& image, int index);
// Every block of the chain in order, or only those whose id is in `ids` when it is not empty.
EPROMDATABLOCK_EXPORT std::string exportImage(const EepromImage& image,
                                              const QSet<quint16>& ids = QSet<quint16>());

} // namespace Tupsim
