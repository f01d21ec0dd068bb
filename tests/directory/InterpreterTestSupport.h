// Helpers for the old-style directory tests: printed text and block images.
#pragma once

#include "support/Bytes.h"

#include <HwDatablock.h>
#include <HwDatablockOldStyleInterpreter.h>

#include <sstream>
#include <string>

namespace Tupsim {
namespace test {

inline std::string printedDirectly(HwDatablock& block) {
    std::ostringstream out;
    block.printToStream(out);
    return out.str();
}

// The text of a block printed through the directory, or "<refused>" when it is refused.
inline std::string printedThrough(HwDatablockOldStyleInterpreter& interpreter, HwDatablock* block) {
    std::ostringstream out;
    if (!interpreter.printHwDatablockOldStyleInfo(block, out))
        return "<refused>" + out.str();
    return out.str();
}

// A block of any class whose image is replaced by `image`, unchecked.
inline void loadImage(HwDatablock& block, const QByteArray& image) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
}

} // namespace test
} // namespace Tupsim
