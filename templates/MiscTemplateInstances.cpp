// The library's instantiations of the generic misc-data tables.
#include "templates/HwDatablockTemplate.tpp"
#include "templates/HwDatablockTemplateWithoutChecksum.tpp"

namespace Tupsim {

template class HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1>;
template class HwDatablockTemplate<MiscData<int, 10, 1>, int, double, 10, 1>;
template class HwDatablockTemplate<MiscData<int, 10, 10>, int, double, 10, 10>;
template class HwDatablockTemplate<MiscData<int, 50, 1>, int, double, 50, 1>;
template class HwDatablockTemplate<MiscData<int, 50, 200>, int, double, 50, 200>;
template class HwDatablockTemplate<MiscData<int, 100, 1>, int, double, 100, 1>;
template class HwDatablockTemplate<MiscData<int, 200, 1>, int, double, 200, 1>;
template class HwDatablockTemplate<MiscData<int, 1, 200>, int, double, 1, 200>;
template class HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>, unsigned char,
                                                  double, 1, 2048>;

} // namespace Tupsim
