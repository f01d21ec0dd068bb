// The converters the core hands byte-order work to: the per-id conversion of the old-style blocks
// and the generic pass over self-describing images. Both live with the block directory, which
// installs them; the core knows them only through this table.
#pragma once

#include "HwEDataFormatTyp.h"

#include <cstdint>

namespace Tupsim {

class HwDatablock;

namespace conversion {

struct Converters {
    // Converts `block` to `format` by the rule of the class that `id` stands for; false, block
    // untouched, for an id without one.
    bool (*byId)(HwEDataFormatTyp format, int id, HwDatablock& block);
    // Reverses the elements of a self-describing image in place, reading no further than
    // `length` bytes; header and table words stay as they are.
    void (*selfDescribing)(unsigned char* image, std::uint64_t length);
};

// Called by the directory, once at load and again on first use of its catalogue, so that no
// order of static initialisation leaves the core without them.
void install(const Converters& converters);

// Per-id conversion through the installed converter; false when none is installed.
bool convertById(HwEDataFormatTyp format, int id, HwDatablock& block);
// The generic pass through the installed converter; nothing happens when none is installed.
void convertSelfDescribing(unsigned char* image, std::uint64_t length);

} // namespace conversion
} // namespace Tupsim
