// Conversion of one old-style block through a temporary of its class.
#include "directory/OldStyleKinds.h"

namespace Tupsim {
namespace oldstyle {

void convertThrough(const Recipe& recipe, int id, HwEDataFormatTyp format, HwDatablock& block) {
    const std::unique_ptr<HwDatablock> temp(recipe.make(id, nullptr));
    temp->setDataWithoutChecksumCheck(&block);
    // Labelled reference form while the rule runs: the checksum refreshes of its setters go
    // through computeChecksum(), which would otherwise convert back through this very switch.
    temp->setDataFormatTyp(HwDataFormatReference);
    recipe.rule(*temp);
    temp->setDataFormatTyp(format);
    block.setDataWithoutChecksumCheck(temp.get());
}

} // namespace oldstyle
} // namespace Tupsim
