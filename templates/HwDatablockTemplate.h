// Generic table of the misc-data blocks that have no class of their own.
#pragma once

#include "templates/HwDatablockMiscTemplate.h"

namespace Tupsim {

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
using HwDatablockTemplate = HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, true>;

// The instantiations the library provides.
extern template class HwDatablockMiscTemplate<MiscData<int, 1, 1>, int, double, 1, 1, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 10, 1>, int, double, 10, 1, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 10, 10>, int, double, 10, 10, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 50, 1>, int, double, 50, 1, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 50, 200>, int, double, 50, 200, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 100, 1>, int, double, 100, 1, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 200, 1>, int, double, 200, 1, true>;
extern template class HwDatablockMiscTemplate<MiscData<int, 1, 200>, int, double, 1, 200, true>;

} // namespace Tupsim
