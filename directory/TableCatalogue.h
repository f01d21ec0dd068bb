// The table-based calibration blocks built from the flag alone, as the directory and the per-id
// conversion see them: block id and conversion recipe.
#pragma once

#include "BlockCatalogue.h"
#include "directory/OldStyleKinds.h"

#include <cstddef>

namespace Tupsim {
namespace oldstyle {

struct CatalogueEntry {
    int id;
    Recipe recipe;
    const char* className;
    const char* textId; // what the block prints behind "ID:"
    TableTemplate form;
    bool readsBack; // the block reads its own printout back
};

// Every such row of the calibration table catalogue, in catalogue order.
const CatalogueEntry* tableCatalogue(std::size_t& count);
// The row of `id`, or nullptr.
const CatalogueEntry* findInCatalogue(int id);

} // namespace oldstyle
} // namespace Tupsim
