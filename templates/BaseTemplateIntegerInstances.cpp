// The library's instantiations of HwDatablockBaseTemplate with integer values.
#include "templates/HwDatablockBaseTemplate.tpp"

namespace Tupsim {

template class HwDatablockBaseTemplate<short, short, 6, 1>;
template class HwDatablockBaseTemplate<int, int, 8, 1>;
template class HwDatablockBaseTemplate<int, int, 10, 1>;
template class HwDatablockBaseTemplate<int, int, 4, 10>;
template class HwDatablockBaseTemplate<int, int, 2, 128>;
template class HwDatablockBaseTemplate<int, int, 6, 50>;
template class HwDatablockBaseTemplate<int, int, 4, 292>;
template class HwDatablockBaseTemplate<int, int, 5, 350>;
template class HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 1>;
template class HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 4>;

} // namespace Tupsim
