// The id table of the old-style block directory.
#pragma once

#include "IdHwDatablockOldStyleClassDict.h"

namespace Tupsim {
namespace oldstyle {

// Registers one new prototype per id of the table, in table order, with insert semantics: an id
// already present keeps its first prototype and the later one is deleted. On an allocation
// failure the prototypes registered so far stay in `dict` for the caller to delete.
void fillDirectory(IdHwDatablockOldStyleClassDict& dict);

} // namespace oldstyle
} // namespace Tupsim
