// Member definitions of HwDatablockMiscTemplate; included only where it is instantiated.
#pragma once

#include "templates/HwDatablockMiscTemplate.h"
#include "templates/TableCore.h"

namespace Tupsim {

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols,
                        KeepsChecksum>::HwDatablockMiscTemplate(const char* name, int blockId,
                                                                int instance, double factor,
                                                                bool stopConversionOnError)
    : HwDatablock(stopConversionOnError), instance(instance), blockId(blockId),
      name(name ? name : ""), factor(factor), maxRows(MaxRows), maxCols(MaxCols) {
    core().raw().initFresh(detail::TableImage::idWord(blockId, instance));
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols,
                        KeepsChecksum>::~HwDatablockMiscTemplate() = default;

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
detail::TableCore<TRaw, TValue>
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::core() {
    return detail::TableCore<TRaw, TValue>(
        *this, image(), {MaxRows, MaxCols, sizeof(TRaw), 0, false}, factor, KeepsChecksum);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
typename HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols,
                                 KeepsChecksum>::HwSDatablock*
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getBlock() {
    return reinterpret_cast<HwSDatablock*>(image().data());
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
unsigned int
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getRowCount() {
    return core().rowCount();
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
unsigned int
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getColCount() {
    return core().colCount();
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
void HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::setRowCount(
    unsigned int rows) {
    core().raw().setRowCount(rows);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
void HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::setColCount(
    unsigned int cols) {
    core().raw().setColCount(cols);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
double
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getFactor() const {
    return factor;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
const char*
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getName() const {
    return name.c_str();
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
int HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getInstance()
    const {
    return instance;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
TValue HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::getCalValue(
    unsigned int row, unsigned int col) {
    return core().getCalValue(row, col);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
void HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::setCalValue(
    TRaw value, unsigned int row, unsigned int col) {
    core().setCalValue(value, row, col);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
unsigned int
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::findFirstValueInCol(
    TValue value, unsigned int col, bool& found, THwERelationOperator op) {
    return core().findFirstValueInCol(value, col, found, op);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
void HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols,
                             KeepsChecksum>::removeValuesFromCol(unsigned int row,
                                                                 unsigned int firstCol,
                                                                 unsigned int lastCol) {
    core().raw().removeValuesFromCol(row, firstCol, lastCol);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
void HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols,
                             KeepsChecksum>::removeValuesFromRow(unsigned int col,
                                                                 unsigned int firstRow,
                                                                 unsigned int lastRow) {
    core().raw().removeValuesFromRow(col, firstRow, lastRow);
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
int HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::setBlock(
    HwSDatablock* block) {
    if (block == nullptr)
        return KeepsChecksum ? 1 : 0;
    return core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                       {KeepsChecksum, true});
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
void HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::swapBlock(
    HwSDatablock* block) {
    if (block != nullptr)
        core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                    {false, true});
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
std::istream&
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::readbin(
    std::istream& in, HwDatablockMiscTemplate& target) {
    QByteArray built;
    if (core().imageFromBinary(in, built))
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
std::istream&
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::searchascii(
    std::istream& in, HwDatablockMiscTemplate& target) {
    QByteArray built = core().imageFromTokenForm(
        in, name, detail::TableImage::idWord(blockId, instance), target.getStopConversionOnError());
    target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
TextReadStatus
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::readSection(
    std::istream& in, HwDatablockMiscTemplate& target) {
    QByteArray built;
    const TextReadStatus status =
        core().imageFromTokenForm(in, name, detail::TableImage::idWord(blockId, instance), built);
    if (status.ok())
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return status;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
std::ostream&
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::conv2ascii(
    std::ostream& out, HwDatablockMiscTemplate& source) {
    detail::writeTokenIdLine(out, name);
    detail::writeTokenBody(out, source.core(), detail::kMiscStyle);
    return out;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
std::ostream&
HwDatablockMiscTemplate<TData, TRaw, TValue, MaxRows, MaxCols, KeepsChecksum>::printToStream(
    std::ostream& out) {
    return conv2ascii(out, *this);
}

} // namespace Tupsim
