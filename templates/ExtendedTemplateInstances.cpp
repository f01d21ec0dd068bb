// The library's instantiations of HwDatablockBaseTemplateExtended.
#include "templates/HwDatablockBaseTemplateExtended.tpp"

namespace Tupsim {

template class HwDatablockBaseTemplateExtended<int, int, 10, 4, 350>;
template class HwDatablockBaseTemplateExtended<int, int, 10, 5, 750>;
template class HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>;

} // namespace Tupsim
