// The per-id byte-order conversion of the old-style blocks.
#pragma once

#include "HwDatablock.h"

namespace Tupsim {
namespace oldstyle {

// Converts `block` to `format` by the rule of the class that `id` stands for; false (block
// untouched) for an id without a rule.
bool convertById(HwEDataFormatTyp format, int id, HwDatablock& block);

} // namespace oldstyle
} // namespace Tupsim
