// Overload counter of a SATT6 step attenuator.
#include "HwDatablockSAtt6OWLDCounter.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/OwldCounter.h"

namespace Tupsim {

namespace {
const owldcounter::Texts kTexts = {11203,
                                   "# Das ist der OWLD-Z\xEF\xBF\xBD"
                                   "hler_1",
                                   "# Das ist der OWLD-Z\xEF\xBF\xBD"
                                   "hler_2",
                                   "SATT6_OWLD_COUNTER_1", "SATT6_OWLD_COUNTER_2"};
}

HwDatablockSAtt6OWLDCounter::HwDatablockSAtt6OWLDCounter(unsigned short instance)
    : HwDatablock(false) {
    image() =
        blockfields::freshImage(static_cast<quint16>(11203 + instance), owldcounter::ImageSize);
}

HwSDatablockSAtt6OWLDCounter* HwDatablockSAtt6OWLDCounter::getBlock() {
    return blockfields::recordView<HwSDatablockSAtt6OWLDCounter>(image());
}

int HwDatablockSAtt6OWLDCounter::setBlock(const HwSDatablockSAtt6OWLDCounter* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockSAtt6OWLDCounter"))
        return 1;
    owldcounter::copyRecord(*this, image(), blockfields::recordCopy(record, sizeof *record), -1);
    return 0;
}

void HwDatablockSAtt6OWLDCounter::swapBlock(const HwSDatablockSAtt6OWLDCounter* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        owldcounter::copyRecord(*this, image(), raw, 0);
}

std::ostream& HwDatablockSAtt6OWLDCounter::printToStream(std::ostream& out) {
    owldcounter::print(out, *this, image(), kTexts);
    return out;
}

const records::RecordSchema& HwDatablockSAtt6OWLDCounter::recordSchema() {
    return owldcounter::schema<HwDatablockSAtt6OWLDCounter>();
}

unsigned int HwDatablockSAtt6OWLDCounter::getCounterValue(unsigned short index) {
    return blockfields::counterAt(image(), index);
}

void HwDatablockSAtt6OWLDCounter::setCounterValue(unsigned int value, unsigned short index) {
    if (blockfields::storeCounter(image(), index, value))
        refreshChecksum();
}

} // namespace Tupsim
