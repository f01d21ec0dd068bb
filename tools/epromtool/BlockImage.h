// Hands a block's bytes to a library object as they are, checksum unchecked: the tool checks
// and reports checksums itself.
#pragma once

#include <HwDatablock.h>
#include <QByteArray>

namespace epromtool {

inline void loadImage(Tupsim::HwDatablock& block, const QByteArray& image) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
}

} // namespace epromtool
