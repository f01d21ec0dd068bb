// Member definitions of HwDatablockTemplate; included only where it is instantiated.
#pragma once

#include "templates/HwDatablockTemplate.h"
#include "templates/TableCore.h"

namespace Tupsim {

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::HwDatablockTemplate(
    const char* name, int blockId, int instance, double factor, bool stopConversionOnError)
    : HwDatablock(stopConversionOnError), instance(instance), blockId(blockId),
      name(name ? name : ""), factor(factor), maxRows(MaxRows), maxCols(MaxCols) {
    core().raw().initFresh(detail::TableImage::idWord(blockId, instance));
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::~HwDatablockTemplate() = default;

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
detail::TableCore<TRaw, TValue> HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::core() {
    return detail::TableCore<TRaw, TValue>(*this, image(),
                                           {MaxRows, MaxCols, sizeof(TRaw), 0, false}, factor);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
typename HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::HwSDatablock*
HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::getBlock() {
    return reinterpret_cast<HwSDatablock*>(image().data());
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
unsigned int HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::getRowCount() {
    return core().rowCount();
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
unsigned int HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::getColCount() {
    return core().colCount();
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::setRowCount(unsigned int rows) {
    core().raw().setRowCount(rows);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::setColCount(unsigned int cols) {
    core().raw().setColCount(cols);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
double HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::getFactor() const {
    return factor;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
int HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::getInstance() const {
    return instance;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
TValue HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::getCalValue(unsigned int row,
                                                                               unsigned int col) {
    return core().getCalValue(row, col);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::setCalValue(TRaw value,
                                                                             unsigned int row,
                                                                             unsigned int col) {
    core().setCalValue(value, row, col);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
unsigned int HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::findFirstValueInCol(
    TValue value, unsigned int col, bool& found, THwERelationOperator op) {
    return core().findFirstValueInCol(value, col, found, op);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::removeValuesFromCol(
    unsigned int row, unsigned int firstCol, unsigned int lastCol) {
    core().raw().removeValuesFromCol(row, firstCol, lastCol);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::removeValuesFromRow(
    unsigned int col, unsigned int firstRow, unsigned int lastRow) {
    core().raw().removeValuesFromRow(col, firstRow, lastRow);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
int HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::setBlock(HwSDatablock* block) {
    if (block == nullptr)
        return 1;
    return core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                       {true, true});
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::swapBlock(HwSDatablock* block) {
    if (block != nullptr)
        core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                    {false, true});
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::istream&
HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::readbin(std::istream& in,
                                                                    HwDatablockTemplate& target) {
    QByteArray built;
    if (core().imageFromBinary(in, built))
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::istream& HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::searchascii(
    std::istream& in, HwDatablockTemplate& target) {
    QByteArray built = core().imageFromTokenForm(
        in, name, detail::TableImage::idWord(blockId, instance), target.getStopConversionOnError());
    target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::ostream& HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::conv2ascii(
    std::ostream& out, HwDatablockTemplate& source) {
    detail::writeTokenIdLine(out, name);
    detail::writeTokenBody(out, source.core(), detail::kMiscStyle);
    return out;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::ostream&
HwDatablockTemplate<TData, TRaw, TValue, MaxRows, MaxCols>::printToStream(std::ostream& out) {
    return conv2ascii(out, *this);
}

} // namespace Tupsim
