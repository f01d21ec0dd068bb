// Image record of the generic misc-data tables. Marked for export only so that the tables built
// on it keep the visibility of their own mark (the test suite links them).
#pragma once

#include "EpromDatablockGlobal.h"

namespace Tupsim {

template <typename TRaw, unsigned int MaxRows, unsigned int MaxCols>
struct EPROMDATABLOCK_EXPORT MiscData {
    unsigned short blockId;
    unsigned short blockSize;
    unsigned short checksum;
    unsigned short alignment;
    unsigned int rowCount;
    unsigned int colCount;
    TRaw values[MaxRows][MaxCols];
};

} // namespace Tupsim
