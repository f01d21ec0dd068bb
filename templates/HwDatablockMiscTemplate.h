// Generic table of the misc-data blocks that have no class of their own, with or without a
// maintained checksum word.
#pragma once

#include "HwDatablock.h"
#include "TextReadStatus.h"
#include "templates/MiscData.h"

#include <istream>
#include <ostream>
#include <string>

namespace Tupsim {

namespace detail {
template <typename TRaw, typename TValue> class TableCore;
}

template <class TData, typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols,
          bool KeepsChecksum>
class EPROMDATABLOCK_EXPORT HwDatablockMiscTemplate : public HwDatablock {
public:
    // The block image field by field.
    using HwSDatablock = TData;
    static_assert(sizeof(HwSDatablock) == 16 + MaxRows * MaxCols * sizeof(TRaw),
                  "the record is the block image without padding");

    // Comparison of findFirstValueInCol.
    enum THwERelationOperator {
        HwRelEqual = 0,
        HwRelGreater = 1,
        HwRelLess = 2,
        HwRelGreaterEqual = 3,
        HwRelLessEqual = 4
    };

    HwDatablockMiscTemplate(const char* name, int blockId, int instance, double factor,
                            bool stopConversionOnError);
    ~HwDatablockMiscTemplate() override;

    HwSDatablock* getBlock();
    unsigned int getRowCount();
    unsigned int getColCount();
    void setRowCount(unsigned int rows);
    void setColCount(unsigned int cols);
    double getFactor() const;
    // The block's key in ASCII calibration files.
    const char* getName() const;
    int getInstance() const;

    // Stored value times the factor; 0 outside the capacity.
    TValue getCalValue(unsigned int row, unsigned int col);
    // Stores a raw (unscaled) value; nothing happens outside the capacity.
    void setCalValue(TRaw value, unsigned int row, unsigned int col);
    unsigned int findFirstValueInCol(TValue value, unsigned int col, bool& found,
                                     THwERelationOperator op);
    void removeValuesFromCol(unsigned int row, unsigned int firstCol, unsigned int lastCol);
    void removeValuesFromRow(unsigned int col, unsigned int firstRow, unsigned int lastRow);

    // With KeepsChecksum: 0 on success, 1 (error 1040001, object unchanged) when the image's
    // checksum is wrong. Without: copies the image with its checksum word as it is, testing
    // nothing, and returns 0; no setter then recomputes the checksum word.
    int setBlock(HwSDatablock* block);
    void swapBlock(HwSDatablock* block);

    // Name, id, instance, factor and capacities are this object's; the result goes to target.
    std::istream& readbin(std::istream& in, HwDatablockMiscTemplate& target);
    std::istream& searchascii(std::istream& in, HwDatablockMiscTemplate& target);
    // searchascii that reports instead of ending the process, as the exported tables' own.
    TextReadStatus readSection(std::istream& in, HwDatablockMiscTemplate& target);
    // This object's name with the counts and cells of source.
    std::ostream& conv2ascii(std::ostream& out, HwDatablockMiscTemplate& source);
    std::ostream& printToStream(std::ostream& out) override;

private:
    detail::TableCore<TRaw, TValue> core();

    int instance;
    int blockId;
    std::string name;
    double factor;
    unsigned int maxRows;
    unsigned int maxCols;
};

} // namespace Tupsim
