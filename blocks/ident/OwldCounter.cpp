// Text form and import shared by the two one-counter overload blocks of the step attenuators.
#include "blocks/ident/OwldCounter.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {
namespace owldcounter {

void print(std::ostream& out, HwDatablock& block, const QByteArray& image, const Texts& texts) {
    const bool first = block.getId() == texts.firstId;
    out << (first ? texts.firstComment : texts.otherComment) << "\n";
    out << "ID:              " << (first ? texts.firstName : texts.otherName) << "\n";
    out << "COUNT_VALUE:     " << blockfields::format("%u", blockfields::counterAt(image, 0))
        << "\n";
}

void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record, int alignment) {
    if (blockfields::storeCounter(image, 0, blockfields::counterAt(record, 0)))
        block.setChecksum(block.computeChecksum());
    if (alignment >= 0)
        block.setAlignment(static_cast<unsigned short>(alignment));
    blockfields::keepRecordChecksum(block, record);
}

} // namespace owldcounter
} // namespace Tupsim
