// Event-counter block: a self-describing block whose CRC-32 field carries the event-counter magic.
#pragma once

#include "HwDatablock2Edition.h"

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwDatablockEventCount : public HwDatablock2Edition {
public:
    HwDatablockEventCount();

    // Sets byte `index` of the data area; an index at or past its end changes nothing.
    bool updateEventCountBlock(unsigned int index, unsigned char value);
    // Loads the image and marks it as an event counter again; always true.
    bool setData(const unsigned char* bytes, unsigned int length) override;
    using HwDatablock2Edition::setData;

    // Class type 2 and the magic word in the CRC-32 field; always true.
    bool makeDatablock2HwEventCount();
};

} // namespace Tupsim
