// The library's error definitions and their once-only registration.
#include "HwDatablock.h"

#include "IErrorManager.h"

namespace Tupsim {

namespace {

// Sixteen rows, as many as the registration announces; the list ends at code -1.
const SErrorDefinition kErrorDefinitions[16] = {
    {1040000, 2, 80, "Datablock record rejected: checksum, id or size wrong", "", ""},
    {1040001, 1, 202, "Check of new EEPROM data failed, download to Eeprom is denied", "", ""},
    {1040002, 1, 203, "WriteToEepromFailed", "", ""},
    {-1, 0, 0, "", "", ""},
};

bool registered = false;

} // namespace

void HwDatablock::registerErrors() {
    if (registered)
        return;
    registered = true;
    errorManager()->registerErrors(kErrorDefinitions, 16);
}

} // namespace Tupsim
