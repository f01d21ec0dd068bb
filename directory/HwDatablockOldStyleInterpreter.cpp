// Directory of the old-style blocks and their per-id byte-order conversion.
#include "HwDatablockOldStyleInterpreter.h"

#include "directory/OldStyleConversion.h"
#include "directory/OldStyleDirectory.h"

namespace Tupsim {

namespace {

void deletePrototypes(IdHwDatablockOldStyleClassDict& dict) {
    for (auto& entry : dict)
        delete entry.second;
    dict.clear();
}

} // namespace

HwDatablockOldStyleInterpreter::HwDatablockOldStyleInterpreter() {
    try {
        oldstyle::fillDirectory(dict);
    } catch (...) {
        // Only an allocation can fail here: drop what was built and let the caller know.
        deletePrototypes(dict);
        throw;
    }
}

HwDatablockOldStyleInterpreter::HwDatablockOldStyleInterpreter(
    const HwDatablockOldStyleInterpreter& other) = default;

HwDatablockOldStyleInterpreter&
HwDatablockOldStyleInterpreter::operator=(const HwDatablockOldStyleInterpreter& other) = default;

HwDatablockOldStyleInterpreter::~HwDatablockOldStyleInterpreter() {
    deletePrototypes(dict);
}

bool HwDatablockOldStyleInterpreter::printHwDatablockOldStyleInfo(HwDatablock* block,
                                                                  std::ostream& out) {
    if (block == nullptr)
        return false;
    // The subscript leaves an empty entry behind for an unknown id.
    HwDatablock* prototype = dict[static_cast<int>(block->getId())];
    if (prototype == nullptr)
        return false;
    prototype->resizeData(static_cast<unsigned short>(block->getBlockSize()));
    prototype->setData(block);
    prototype->printToStream(out);
    return true;
}

bool HwDatablockOldStyleInterpreter::swapHwDatablock(HwEDataFormatTyp format, int id,
                                                     HwDatablock* block) {
    if (block == nullptr)
        return false;
    return oldstyle::convertById(format, id, *block);
}

} // namespace Tupsim
