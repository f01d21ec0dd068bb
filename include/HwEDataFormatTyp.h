// Data format of a block image: 0 is the reference form, 1 the byte-swapped form.
#pragma once

namespace Tupsim {

enum HwEDataFormatTyp : int { HwDataFormatReference = 0, HwDataFormatConverted = 1 };

} // namespace Tupsim
