// Out-of-line destructors anchor the interfaces' type information in the library.
#include "IHwDatablockAccess.h"
#include "IHwVariantEeprom.h"

namespace Tupsim {

IHwDatablockAccess::~IHwDatablockAccess() = default;
IHwVariantEeprom::~IHwVariantEeprom() = default;

} // namespace Tupsim
