// The library's instantiations of the generic misc-data tables.
#include "templates/HwDatablockMiscTemplate.tpp"
#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

namespace Tupsim {

template class HwDatablockMiscTemplate<MiscData<int, 1, 1>, int, double, 1, 1, true>;
template class HwDatablockMiscTemplate<MiscData<int, 10, 1>, int, double, 10, 1, true>;
template class HwDatablockMiscTemplate<MiscData<int, 10, 10>, int, double, 10, 10, true>;
template class HwDatablockMiscTemplate<MiscData<int, 50, 1>, int, double, 50, 1, true>;
template class HwDatablockMiscTemplate<MiscData<int, 50, 200>, int, double, 50, 200, true>;
template class HwDatablockMiscTemplate<MiscData<int, 100, 1>, int, double, 100, 1, true>;
template class HwDatablockMiscTemplate<MiscData<int, 200, 1>, int, double, 200, 1, true>;
template class HwDatablockMiscTemplate<MiscData<int, 1, 200>, int, double, 1, 200, true>;
template class HwDatablockMiscTemplate<MiscData<unsigned char, 1, 2048>, unsigned char, double, 1,
                                       2048, false>;

} // namespace Tupsim
