// Overload and high-power counters of a SATTC step attenuator.
#include "HwDatablockSAttCCounter.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int { ImageSize = 16 };

void setCounter(HwDatablock& block, const records::Value& value, unsigned index) {
    static_cast<HwDatablockSAttCCounter&>(block).setCounterValue(
        static_cast<unsigned>(value.number), static_cast<unsigned short>(index));
}

// Both counters on one line: COUNT_VALUE1 and COUNT_VALUE2.
const records::FieldRow kRows[] = {
    {"COUNT_VALUE", blockfields::FirstCounter, sizeof(quint32), records::Codec::Number, &setCounter,
     2, records::Spread::Columns},
};

struct CounterTexts {
    const char* comment;
    const char* name;
};

// Comment line and name by id; other ids print neither.
CounterTexts textsFor(unsigned int id) {
    switch (id) {
    case VARIANT_SATTC_OVLDCOUNTER:
        return {"#Das ist der OVLD-Z\xEF\xBF\xBD"
                "hler\n",
                "SATTC_OVLDCOUNTER"};
    case VARIANT_SATTC_OVLDCOUNTER_BACKUP:
        return {"#Das ist der backup OVLD-Z\xEF\xBF\xBD"
                "hler\n",
                "SATTC_OVLDCOUNTER_BACKUP"};
    case VARIANT_SATTC_HPCOUNTER:
        return {"#Das ist der HP-Z\xEF\xBF\xBD"
                "hler\n",
                "SATTC_HPCOUNTER"};
    case VARIANT_SATTC_HPCOUNTER_BACKUP:
        return {"#Das ist der backup HP-Z\xEF\xBF\xBD"
                "hler\n",
                "SATTC_HPCOUNTER_BACKUP"};
    default:
        return {"", ""};
    }
}
} // namespace

HwDatablockSAttCCounter::HwDatablockSAttCCounter(HwEVariantEepromDatablock id)
    : HwDatablock(false), instance(id) {
    image() = blockfields::freshImage(id, ImageSize);
    refreshChecksum();
}

HwSDatablockSAttCCounter* HwDatablockSAttCCounter::getBlock() {
    return blockfields::recordView<HwSDatablockSAttCCounter>(image());
}

int HwDatablockSAttCCounter::setBlock(const HwSDatablockSAttCCounter* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return 1;
    setCounterValue(blockfields::counterAt(raw, 0), 0);
    setCounterValue(blockfields::counterAt(raw, 1), 1);
    return 0;
}

void HwDatablockSAttCCounter::swapBlock(const HwSDatablockSAttCCounter* record) {
    if (setBlock(record) != 0)
        return;
    setAlignment(0);
    blockfields::keepRecordChecksum(*this, blockfields::recordCopy(record, sizeof *record));
}

std::ostream& HwDatablockSAttCCounter::printToStream(std::ostream& out) {
    const CounterTexts texts = textsFor(getId());
    out << texts.comment;
    out << "ID:               " << texts.name << "\n";
    out << "COUNT_VALUE:    " << blockfields::format("%u", getCounterValue(0)) << "\t\t"
        << blockfields::format("%u", getCounterValue(1)) << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockSAttCCounter::recordSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockSAttCCounter>(kRows, ImageSize);
    return schema;
}

unsigned int HwDatablockSAttCCounter::getCounterValue(unsigned short index) {
    return blockfields::counterAt(image(), index);
}

void HwDatablockSAttCCounter::setCounterValue(unsigned int value, unsigned short index) {
    if (blockfields::storeCounter(image(), index, value))
        refreshChecksum();
}

} // namespace Tupsim
