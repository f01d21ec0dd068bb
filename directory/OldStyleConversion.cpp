// The per-id byte-order conversion of the old-style blocks: the catalogue says which ids convert,
// and by which class's rule. It is narrower than the directory on purpose: 299, the calibration
// blocks below 15690 and the misc-data tables have no rule, while 15853-15862 have one but no
// prototype.
#include "directory/OldStyleConversion.h"

#include "core/Converters.h"
#include "directory/Catalogue.h"
#include "directory/TableWalk.h"

namespace Tupsim {
namespace oldstyle {

bool convertById(HwEDataFormatTyp format, int id, HwDatablock& block) {
    if (id < 0 || id > 0xFFFF)
        return false;
    const catalogue::Entry* entry = catalogue::find(static_cast<quint16>(id));
    if (entry == nullptr || entry->conversion.rule == nullptr)
        return false;
    convertThrough(entry->conversion, id, format, block);
    return true;
}

void installConverters() {
    conversion::install({&convertById, &reverseElements});
}

void ensureConverters() {
    static const bool installed = (installConverters(), true);
    (void)installed;
}

namespace {
// At load. The catalogue and the self-describing block ensure them again on first use, so that
// neither the order of static initialisation nor a static link that leaves this file's
// initialiser out can keep them from the core.
const bool installedAtLoad = (installConverters(), true);
} // namespace

} // namespace oldstyle
} // namespace Tupsim
