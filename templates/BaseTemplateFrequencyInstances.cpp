// The library's instantiations of HwDatablockBaseTemplate for unsigned frequency vectors.
#include "templates/HwDatablockBaseTemplate.tpp"

namespace Tupsim {

template class HwDatablockBaseTemplate<unsigned int, double, 10, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 20, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 32, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 50, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 128, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 150, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 200, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 292, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 350, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 600, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 750, 1>;
template class HwDatablockBaseTemplate<unsigned int, double, 4, 32>;

} // namespace Tupsim
