// The library's instantiations of HwDatablockBaseTemplate with floating values.
#include "templates/HwDatablockBaseTemplate.tpp"

namespace Tupsim {

template class HwDatablockBaseTemplate<char, double, 12, 1>;
template class HwDatablockBaseTemplate<unsigned short, double, 50, 1>;
template class HwDatablockBaseTemplate<unsigned short, double, 64, 1>;
template class HwDatablockBaseTemplate<unsigned short, double, 64, 50>;
template class HwDatablockBaseTemplate<int, double, 1, 128>;
template class HwDatablockBaseTemplate<int, double, 2, 128>;
template class HwDatablockBaseTemplate<int, double, 4, 50>;
template class HwDatablockBaseTemplate<float, float, 50, 4>;
template class HwDatablockBaseTemplate<double, double, 50, 1>;
template class HwDatablockBaseTemplate<double, double, 200, 1>;

} // namespace Tupsim
