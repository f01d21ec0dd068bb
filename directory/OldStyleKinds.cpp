// Conversion of one old-style block through a temporary of its class.
#include "directory/OldStyleKinds.h"

#include "core/ConversionScope.h"

namespace Tupsim {
namespace oldstyle {

void convertThrough(const Recipe& recipe, int id, HwEDataFormatTyp format, HwDatablock& block) {
    const std::unique_ptr<HwDatablock> temp(recipe.make(id, nullptr));
    temp->setDataWithoutChecksumCheck(&block);
    {
        // The rule's setters refresh the checksum over the image as it stands.
        const conversion::Scope converting(*temp);
        recipe.rule(*temp);
    }
    temp->setDataFormatTyp(format);
    block.setDataWithoutChecksumCheck(temp.get());
}

} // namespace oldstyle
} // namespace Tupsim
