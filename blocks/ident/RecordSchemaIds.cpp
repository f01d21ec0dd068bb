// Which record schema applies to which block id: the ids the directory gives each record class.
#include "blocks/RecordSchema.h"

#include "HwDatablockCwop6VcoIdent.h"
#include "HwDatablockIdent.h"
#include "HwDatablockMbrdModel.h"
#include "HwDatablockMbrdSerialNumber.h"
#include "HwDatablockMiscIdent.h"
#include "HwDatablockModification110.h"
#include "HwDatablockModification120.h"
#include "HwDatablockSAtt3OWLDCounter.h"
#include "HwDatablockSAtt6OWLDCounter.h"
#include "HwDatablockSAttCCounter.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockStatistic.h"
#include "HwEVariantEepromDatablock.h"

namespace Tupsim {
namespace records {

namespace {

struct IdRange {
    quint16 first;
    quint16 last;
    const RecordSchema* (*schema)();
};

// The directory gives id 299 to the service class too; it prints no name.
constexpr quint16 kUnnamedService = 299;

const IdRange kRanges[] = {
    {VARIANT_IDENT_2, VARIANT_IDENT_10, &schemaOf<HwDatablockIdent>},
    {VARIANT_MODIFICATION_100, VARIANT_MODIFICATION_100, &schemaOf<HwDatablockModification>},
    {VARIANT_MODIFICATION_110, VARIANT_MODIFICATION_110, &schemaOf<HwDatablockModification110>},
    {VARIANT_MODIFICATION_120, VARIANT_MODIFICATION_120, &schemaOf<HwDatablockModification120>},
    {VARIANT_SERVICE_200, VARIANT_SERVICE_209, &schemaOf<HwDatablockServiceData>},
    {kUnnamedService, kUnnamedService, &schemaOf<HwDatablockServiceData>},
    {VARIANT_STATISTICS_300, VARIANT_STATISTICS_300, &schemaOf<HwDatablockStatistic>},
    {VARIANT_VCO_IDENT, VARIANT_VCO_IDENT, &schemaOf<HwDatablockCwop6VcoIdent>},
    {VARIANT_STREAM_OPT_IDENT, VARIANT_STREAM_AUX_IDENT, &schemaOf<HwDatablockMiscIdent>},
    {VARIANT_SATT3_OWLD_COUNTER_1, VARIANT_SATT3_OWLD_COUNTER_2,
     &schemaOf<HwDatablockSAtt3OWLDCounter>},
    {VARIANT_SATT6_OWLD_COUNTER_1, VARIANT_SATT6_OWLD_COUNTER_2,
     &schemaOf<HwDatablockSAtt6OWLDCounter>},
    {VARIANT_SATTC_OVLDCOUNTER, VARIANT_SATTC_HPCOUNTER_BACKUP, &schemaOf<HwDatablockSAttCCounter>},
    {VARIANT_SERIAL_NUMBER, VARIANT_SERIAL_NUMBER, &schemaOf<HwDatablockMbrdSerialNumber>},
    {VARIANT_GENERATOR_MODEL, VARIANT_GENERATOR_MODEL, &schemaOf<HwDatablockMbrdModel>},
};

} // namespace

const RecordSchema* schemaForId(quint16 id) {
    for (const IdRange& range : kRanges)
        if (id >= range.first && id <= range.last)
            return range.schema();
    return nullptr;
}

} // namespace records
} // namespace Tupsim
