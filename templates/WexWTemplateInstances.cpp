// The library's instantiation of HwDatablockBaseTemplateWexW.
#include "templates/HwDatablockBaseTemplateWexW.tpp"

namespace Tupsim {

template class HwDatablockBaseTemplateWexW<float, double, 50, 7>;

} // namespace Tupsim
