// What the template under a table class fixes: its capacity, its text form, where its counts lie
// and how large its image is. The one rule for every table class, deduced from the template.
#pragma once

#include "BlockCatalogue.h"
#include "HwDatablockBaseTemplate.h"
#include "HwDatablockBaseTemplateExtended.h"
#include "HwDatablockBaseTemplateIndex.h"
#include "HwDatablockBaseTemplateWexW.h"
#include "templates/HwDatablockMiscTemplate.h"

#include <QtGlobal>
#include <cstddef>

namespace Tupsim {
namespace catalogue {

struct TableShape {
    quint32 rows;
    quint32 cols;
    TableTemplate form;
};

template <typename R, typename V, unsigned int Rows, unsigned int Cols>
constexpr TableShape shapeOf(const HwDatablockBaseTemplate<R, V, Rows, Cols>*) {
    return {Rows, Cols, TableTemplate::Base};
}
template <typename R, typename V, unsigned int Rows, unsigned int Cols>
constexpr TableShape shapeOf(const HwDatablockBaseTemplateIndex<R, V, Rows, Cols>*) {
    return {Rows, Cols, TableTemplate::Index};
}
template <typename R, typename V, unsigned int D, unsigned int Rows, unsigned int Cols>
constexpr TableShape shapeOf(const HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>*) {
    return {Rows, Cols, TableTemplate::Extended};
}
template <typename R, typename V, unsigned int Rows, unsigned int Cols>
constexpr TableShape shapeOf(const HwDatablockBaseTemplateWexW<R, V, Rows, Cols>*) {
    return {Rows, Cols, TableTemplate::WexW};
}
template <class D, typename R, typename V, unsigned int Rows, unsigned int Cols, bool K>
constexpr TableShape shapeOf(const HwDatablockMiscTemplate<D, R, V, Rows, Cols, K>*) {
    return {Rows, Cols, TableTemplate::Misc};
}

// The shape of table class `Block`, from the template it derives from.
template <class Block> constexpr TableShape tableShape() {
    return shapeOf(static_cast<const Block*>(nullptr));
}

// Where the row count of an image of `Block` lies; the column count follows it.
template <class Block> constexpr int countsOffset() {
    return static_cast<int>(offsetof(typename Block::HwSDatablock, rowCount));
}

// Bytes of a whole image of `Block`.
template <class Block> constexpr int imageSize() {
    return static_cast<int>(sizeof(typename Block::HwSDatablock));
}

} // namespace catalogue
} // namespace Tupsim
