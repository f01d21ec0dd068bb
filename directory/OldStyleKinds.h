// How the directory and the per-id conversion make and convert one old-style block kind.
#pragma once

#include "HwDatablock.h"
#include "core/HwBytes.h"

#include <algorithm>
#include <cstdint>
#include <memory>

namespace Tupsim {
namespace oldstyle {

// Makes a new object of one block kind; the misc-data tables take their id and ID string,
// every other kind ignores both.
using Factory = HwDatablock* (*)(int id, const char* idString);
// Reorders the image of a temporary of the block's class in place.
using Rule = void (*)(HwDatablock& temp);

template <class T> HwDatablock* create(int, const char*) {
    return new T();
}

// The dedicated rule of the identification and service blocks.
template <class T> void ownRule(HwDatablock& temp) {
    static_cast<T&>(temp).swapOwnImage();
}

// The element-wise rule of the table templates, over a copy of the image zero-padded to the
// record: an image shorter than the record is never read past its end.
template <class T> void tableRule(HwDatablock& temp) {
    using Record = typename T::HwSDatablock;
    const std::unique_ptr<Record> record(new Record()); // zero-filled
    const QByteArray image = temp.getByteArrayData();
    bytes::copyOut(
        image, 0, record.get(),
        std::min<std::uint64_t>(sizeof(Record), static_cast<std::uint64_t>(image.size())));
    static_cast<T&>(temp).swapBlock(record.get());
}

// One conversion: the class of the temporary and its rule.
struct Recipe {
    Factory make;
    Rule rule;
};

// Converts `block` to `format` through a temporary made by the recipe.
void convertThrough(const Recipe& recipe, int id, HwEDataFormatTyp format, HwDatablock& block);

} // namespace oldstyle
} // namespace Tupsim
