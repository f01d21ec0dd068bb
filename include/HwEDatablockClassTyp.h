// Class type of a block; the core itself sets only 2, the event-counter mark.
#pragma once

namespace Tupsim {

enum HwEDatablockClassTyp : int { HwDatablockClassNone = 0, HwDatablockClassEventCount = 2 };

} // namespace Tupsim
