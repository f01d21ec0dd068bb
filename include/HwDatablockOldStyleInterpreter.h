// Directory of the old-style blocks: block id to the class that interprets and converts it.
#pragma once

#include "HwDatablock.h"
#include "IdHwDatablockOldStyleClassDict.h"

#include <ostream>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwDatablockOldStyleInterpreter {
public:
    // Registers one prototype per known block id.
    HwDatablockOldStyleInterpreter();
    // Shallow: both interpreters then point at the same prototypes.
    HwDatablockOldStyleInterpreter(const HwDatablockOldStyleInterpreter& other);
    HwDatablockOldStyleInterpreter& operator=(const HwDatablockOldStyleInterpreter& other);
    // Deletes every prototype.
    virtual ~HwDatablockOldStyleInterpreter();

    // Prints `block` in the form of the class registered for its id; false for a null block or
    // an id without a prototype (such an id gains an empty entry).
    bool printHwDatablockOldStyleInfo(HwDatablock* block, std::ostream& out);

    // Converts `block` by the rule of the class registered for `id`; false for an unknown id.
    static bool swapHwDatablock(HwEDataFormatTyp format, int id, HwDatablock* block);

    // The registered ids and their prototypes, for callers that list what is known.
    const IdHwDatablockOldStyleClassDict& getDictionary() const { return dict; }

private:
    IdHwDatablockOldStyleClassDict dict;
};

} // namespace Tupsim
