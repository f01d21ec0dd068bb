// Overload counter of a SATT3 step attenuator.
#include "HwDatablockSAtt3OWLDCounter.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/OwldCounter.h"

namespace Tupsim {

namespace {
const owldcounter::Texts kTexts = {10604,
                                   "#Das ist der OWLD-Z\xEF\xBF\xBD"
                                   "hler",
                                   "#Das ist der zweite OWLD-Z\xEF\xBF\xBD"
                                   "hler",
                                   "SATT3_OWLD_COUNTER_1", "SATT3_OWLD_COUNTER_2"};
}

HwDatablockSAtt3OWLDCounter::HwDatablockSAtt3OWLDCounter(unsigned short instance)
    : HwDatablock(false) {
    image() =
        blockfields::freshImage(static_cast<quint16>(10604 + instance), owldcounter::ImageSize);
}

HwSDatablockSAtt3OWLDCounter* HwDatablockSAtt3OWLDCounter::getBlock() {
    return blockfields::recordView<HwSDatablockSAtt3OWLDCounter>(image());
}

int HwDatablockSAtt3OWLDCounter::setBlock(const HwSDatablockSAtt3OWLDCounter* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockSAtt3OWLDCounter"))
        return 1;
    owldcounter::copyRecord(*this, image(), blockfields::recordCopy(record, sizeof *record), -1);
    return 0;
}

void HwDatablockSAtt3OWLDCounter::swapBlock(const HwSDatablockSAtt3OWLDCounter* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (!raw.isEmpty())
        owldcounter::copyRecord(*this, image(), raw, 0);
}

std::ostream& HwDatablockSAtt3OWLDCounter::printToStream(std::ostream& out) {
    owldcounter::print(out, *this, image(), kTexts);
    return out;
}

const records::RecordSchema& HwDatablockSAtt3OWLDCounter::recordSchema() {
    return owldcounter::schema<HwDatablockSAtt3OWLDCounter>();
}

unsigned int HwDatablockSAtt3OWLDCounter::getCounterValue(unsigned short index) {
    return blockfields::counterAt(image(), index);
}

void HwDatablockSAtt3OWLDCounter::setCounterValue(unsigned int value, unsigned short index) {
    if (blockfields::storeCounter(image(), index, value))
        refreshChecksum();
}

} // namespace Tupsim
