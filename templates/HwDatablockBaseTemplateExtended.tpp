// Member definitions of HwDatablockBaseTemplateExtended; included only where it is instantiated.
#pragma once

#include "HwDatablockBaseTemplateExtended.h"
#include "templates/TableCore.h"

#include <vector>

namespace Tupsim {

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::
    HwDatablockBaseTemplateExtended(const char* name, int blockId, int instance, double factor,
                                    bool stopConversionOnError)
    : HwDatablock(stopConversionOnError), instance(instance), blockId(blockId),
      name(name ? name : ""), factor(factor), maxRows(MaxRows), maxCols(MaxCols),
      descriptorCount(MaxDescriptors) {
    core().raw().initFresh(detail::TableImage::idWord(blockId, instance));
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows,
                                MaxCols>::~HwDatablockBaseTemplateExtended() = default;

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
detail::TableCore<TRaw, TValue>
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::core() {
    return detail::TableCore<TRaw, TValue>(
        *this, image(), {MaxRows, MaxCols, sizeof(TRaw), MaxDescriptors, false}, factor);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
typename HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows,
                                         MaxCols>::HwSDatablock*
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getBlock() {
    return reinterpret_cast<HwSDatablock*>(image().data());
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
unsigned int
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getRowCount() {
    return core().rowCount();
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
unsigned int
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getColCount() {
    return core().colCount();
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::setRowCount(
    unsigned int rows) {
    core().raw().setRowCount(rows);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::setColCount(
    unsigned int cols) {
    core().raw().setColCount(cols);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
double
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getFactor() const {
    return factor;
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
const char*
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getName() const {
    return name.c_str();
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
int HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getInstance()
    const {
    return instance;
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
TValue HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getCalValue(
    unsigned int row, unsigned int col) {
    return core().getCalValue(row, col);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::setCalValue(
    TRaw value, unsigned int row, unsigned int col) {
    core().setCalValue(value, row, col);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
unsigned int
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows,
                                MaxCols>::findFirstValueInCol(TValue value, unsigned int col,
                                                              bool& found,
                                                              THwERelationOperator op) {
    return core().findFirstValueInCol(value, col, found, op);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows,
                                     MaxCols>::removeValuesFromCol(unsigned int row,
                                                                   unsigned int firstCol,
                                                                   unsigned int lastCol) {
    core().raw().removeValuesFromCol(row, firstCol, lastCol);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows,
                                     MaxCols>::removeValuesFromRow(unsigned int col,
                                                                   unsigned int firstRow,
                                                                   unsigned int lastRow) {
    core().raw().removeValuesFromRow(col, firstRow, lastRow);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::getDescriptor(
    int i, std::string& text) {
    core().raw().appendDescriptor(i, text);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::setDescriptor(
    int i, std::string& text) {
    core().raw().setDescriptor(i, text);
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
int HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::setBlock(
    HwSDatablock* block) {
    if (block == nullptr)
        return 1;
    return core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                       {true, true});
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
void HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::swapBlock(
    HwSDatablock* block) {
    if (block != nullptr)
        core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                    {false, true});
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
std::istream&
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::readbin(
    std::istream& in, HwDatablockBaseTemplateExtended& target) {
    QByteArray built;
    if (core().imageFromBinary(in, built))
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
std::istream&
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::searchascii(
    std::istream& in, HwDatablockBaseTemplateExtended& target) {
    QByteArray built = core().imageFromTokenForm(
        in, name, detail::TableImage::idWord(blockId, instance), target.getStopConversionOnError());
    target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
TextReadStatus
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::readSection(
    std::istream& in, HwDatablockBaseTemplateExtended& target) {
    QByteArray built;
    const TextReadStatus status =
        core().imageFromTokenForm(in, name, detail::TableImage::idWord(blockId, instance), built);
    if (status.ok())
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return status;
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
std::ostream&
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::conv2ascii(
    std::ostream& out, HwDatablockBaseTemplateExtended& source) {
    std::vector<std::string> descriptors(MaxDescriptors);
    for (unsigned int i = 0; i < MaxDescriptors; ++i)
        source.getDescriptor(static_cast<int>(i), descriptors[i]);
    detail::writeDescriptorHeader(out, name, descriptors);
    detail::writeTokenBody(out, source.core(), detail::kTableStyle);
    return out;
}

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
std::ostream&
HwDatablockBaseTemplateExtended<TRaw, TValue, MaxDescriptors, MaxRows, MaxCols>::printToStream(
    std::ostream& out) {
    return conv2ascii(out, *this);
}

} // namespace Tupsim
