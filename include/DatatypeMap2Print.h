// Column number to element type, as the printers of self-describing blocks look it up.
#pragma once

#include "ETypeId.h"
#include "EpromDatablockGlobal.h"

#include <QMap>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT DatatypeMap2Print : public QMap<unsigned int, ETypeId> {
public:
    // The type of `column`; NONE for a column the map does not hold.
    ETypeId typeOf(unsigned int column) const { return value(column, NONE); }
};

} // namespace Tupsim
