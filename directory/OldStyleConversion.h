// The per-id byte-order conversion of the old-style blocks, and the installation of the
// directory's converters in the core.
#pragma once

#include "HwDatablock.h"

namespace Tupsim {
namespace oldstyle {

// Converts `block` to `format` by the rule of the class that `id` stands for; false (block
// untouched) for an id without a rule.
bool convertById(HwEDataFormatTyp format, int id, HwDatablock& block);

// Hands the core the per-id conversion and the generic pass over self-describing images.
void installConverters();
// The same, done once per process: cheap enough for a constructor.
void ensureConverters();

} // namespace oldstyle
} // namespace Tupsim
