// Generic byte table of a misc-data block whose checksum word is carried, never computed.
#pragma once

#include "templates/HwDatablockMiscTemplate.h"

namespace Tupsim {

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
using HwDatablockTemplateWithoutChecksum =
    HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, false>;

// The instantiation the library provides.
extern template class HwDatablockMiscTemplate<MiscData<unsigned char, 1, 2048>, unsigned char,
                                              double, 1, 2048, false>;

} // namespace Tupsim
