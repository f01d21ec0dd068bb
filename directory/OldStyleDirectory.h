// The old-style block directory: one prototype per id of the catalogue.
#pragma once

#include "IdHwDatablockOldStyleClassDict.h"

namespace Tupsim {
namespace oldstyle {

// Registers one new prototype per id of the catalogue's directory, with insert semantics: an id
// already present keeps its prototype and the new one is deleted. On an allocation failure the
// prototypes registered so far stay in `dict` for the caller to delete.
void fillDirectory(IdHwDatablockOldStyleClassDict& dict);

} // namespace oldstyle
} // namespace Tupsim
