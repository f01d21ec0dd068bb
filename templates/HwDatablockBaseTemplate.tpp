// Member definitions of HwDatablockBaseTemplate; included only where it is instantiated.
#pragma once

#include "HwDatablockBaseTemplate.h"
#include "templates/HeadedLineForm.h"
#include "templates/TableCore.h"

namespace Tupsim {

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::HwDatablockBaseTemplate(
    const char* name, int blockId, int instance, double factor, bool stopConversionOnError)
    : HwDatablock(stopConversionOnError), instance(instance), blockId(blockId),
      name(name ? name : ""), factor(factor), maxRows(MaxRows), maxCols(MaxCols) {
    core().raw().initFresh(detail::TableImage::idWord(blockId, instance));
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::~HwDatablockBaseTemplate() = default;

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
detail::TableCore<TRaw, TValue> HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::core() {
    return detail::TableCore<TRaw, TValue>(*this, image(),
                                           {MaxRows, MaxCols, sizeof(TRaw), 0, false}, factor);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
typename HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::HwSDatablock*
HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getBlock() {
    return reinterpret_cast<HwSDatablock*>(image().data());
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
unsigned int HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getRowCount() {
    return core().rowCount();
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
unsigned int HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getColCount() {
    return core().colCount();
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::setRowCount(unsigned int rows) {
    core().raw().setRowCount(rows);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::setColCount(unsigned int cols) {
    core().raw().setColCount(cols);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
double HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getFactor() const {
    return factor;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
const char* HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getName() const {
    return name.c_str();
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
int HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getInstance() const {
    return instance;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
TValue HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::getCalValue(unsigned int row,
                                                                            unsigned int col) {
    return core().getCalValue(row, col);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::setCalValue(TRaw value,
                                                                          unsigned int row,
                                                                          unsigned int col) {
    core().setCalValue(value, row, col);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
unsigned int HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::findFirstValueInCol(
    TValue value, unsigned int col, bool& found, THwERelationOperator op) {
    return core().findFirstValueInCol(value, col, found, op);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::removeValuesFromCol(
    unsigned int row, unsigned int firstCol, unsigned int lastCol) {
    core().raw().removeValuesFromCol(row, firstCol, lastCol);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::removeValuesFromRow(
    unsigned int col, unsigned int firstRow, unsigned int lastRow) {
    core().raw().removeValuesFromRow(col, firstRow, lastRow);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
int HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::setBlock(HwSDatablock* block) {
    if (block == nullptr)
        return 1;
    return core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                       {true, true});
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
void HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::swapBlock(HwSDatablock* block) {
    if (block != nullptr)
        core().load(QByteArray(reinterpret_cast<const char*>(block), sizeof(HwSDatablock)),
                    {false, true});
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::istream&
HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::readbin(std::istream& in,
                                                                 HwDatablockBaseTemplate& target) {
    QByteArray built;
    if (core().imageFromBinary(in, built))
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::istream& HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::searchascii(
    std::istream& in, HwDatablockBaseTemplate& target) {
    QByteArray built = core().imageFromTokenForm(
        in, name, detail::TableImage::idWord(blockId, instance), target.getStopConversionOnError());
    target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
TextReadStatus HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::readSection(
    std::istream& in, HwDatablockBaseTemplate& target) {
    QByteArray built;
    const TextReadStatus status =
        core().imageFromTokenForm(in, name, detail::TableImage::idWord(blockId, instance), built);
    if (status.ok())
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return status;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::ostream& HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::conv2ascii(
    std::ostream& out, HwDatablockBaseTemplate& source) {
    detail::writeTokenIdLine(out, name);
    detail::writeTokenBody(out, source.core(), detail::kTableStyle);
    return out;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::ostream&
HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::printToStream(std::ostream& out) {
    return conv2ascii(out, *this);
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::ostream& HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::writeHeadedLineForm(
    std::ostream& out, const HeadedLineForm& form, HwDatablockBaseTemplate& source) {
    detail::writeHeadedLineForm(out, form, source.core());
    return out;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
std::istream& HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::readHeadedLineForm(
    std::istream& in, const HeadedLineForm& form, HwDatablockBaseTemplate& target) {
    const detail::ParsedLines parsed =
        detail::readLineSection(in, detail::headedLineDialect(form), MaxRows, MaxCols);
    QByteArray built = core().imageFromLines(parsed, detail::TableImage::idWord(blockId, instance));
    target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    return in;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
TextReadStatus HwDatablockBaseTemplate<TRaw, TValue, MaxRows, MaxCols>::readHeadedSection(
    std::istream& in, const HeadedLineForm& form, HwDatablockBaseTemplate& target) {
    TextReadStatus status;
    const detail::ParsedLines parsed =
        detail::readLineSection(in, detail::headedLineDialect(form), MaxRows, MaxCols, status);
    if (status.ok()) {
        QByteArray built =
            core().imageFromLines(parsed, detail::TableImage::idWord(blockId, instance));
        target.setBlock(reinterpret_cast<HwSDatablock*>(built.data()));
    }
    return status;
}

} // namespace Tupsim
