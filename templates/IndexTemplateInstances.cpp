// The library's instantiations of HwDatablockBaseTemplateIndex.
#include "templates/HwDatablockBaseTemplateIndex.tpp"

namespace Tupsim {

template class HwDatablockBaseTemplateIndex<int, int, 27, 20>;
template class HwDatablockBaseTemplateIndex<int, int, 27, 200>;
template class HwDatablockBaseTemplateIndex<int, int, 35, 150>;
template class HwDatablockBaseTemplateIndex<int, int, 40, 200>;
template class HwDatablockBaseTemplateIndex<int, int, 80, 50>;

} // namespace Tupsim
