// Calibration table with copy semantics whose text form carries ten decimals.
#pragma once

#include "HwDatablock.h"
#include "TextReadStatus.h"

#include <istream>
#include <ostream>
#include <string>

namespace Tupsim {

namespace detail {
template <typename TRaw, typename TValue> class TableCore;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
class EPROMDATABLOCK_EXPORT HwDatablockBaseTemplateWexW : public HwDatablock {
public:
    // The block image field by field; the value array always has its full capacity.
    struct HwSDatablock {
        unsigned short blockId;
        unsigned short blockSize;
        unsigned short checksum;
        unsigned short alignment;
        unsigned int rowCount;
        unsigned int colCount;
        TRaw values[MaxRows][MaxCols];
    };
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

    HwDatablockBaseTemplateWexW(char* name, int blockId, int instance, double factor,
                                bool stopConversionOnError);
    HwDatablockBaseTemplateWexW(const HwDatablockBaseTemplateWexW& other);
    HwDatablockBaseTemplateWexW& operator=(const HwDatablockBaseTemplateWexW& other);
    ~HwDatablockBaseTemplateWexW() override;

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

    // Copies the image without testing its checksum and keeps the checksum of the copied
    // cells; always 0.
    int setBlock(HwSDatablock* block);
    void swapBlock(HwSDatablock* block);

    // Name, id, instance, factor and capacities are this object's; the result goes to target.
    std::istream& readbin(std::istream& in, HwDatablockBaseTemplateWexW& target);
    std::istream& searchascii(std::istream& in, HwDatablockBaseTemplateWexW& target);
    // Reads this block's section like searchascii, but reports what went wrong instead of
    // ending the process or writing anything; `target` is loaded only when the result is ok().
    // Stricter than searchascii: a missing "ID:" or name fails whatever
    // getStopConversionOnError() says, and so do counts that are negative as signed 32-bit
    // numbers and values that cannot be read as numbers of the table.
    TextReadStatus readSection(std::istream& in, HwDatablockBaseTemplateWexW& target);
    // This object's name with the counts and cells of source, one line per row.
    std::ostream& conv2ascii(std::ostream& out, HwDatablockBaseTemplateWexW& source);
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

// The instantiation the library provides.
extern template class HwDatablockBaseTemplateWexW<float, double, 50, 7>;

} // namespace Tupsim
