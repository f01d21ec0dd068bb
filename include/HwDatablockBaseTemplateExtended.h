// Calibration table behind a set of 16-character descriptors.
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

template <typename TRaw, typename TValue, unsigned int MaxDescriptors, unsigned int MaxRows,
          unsigned int MaxCols>
class EPROMDATABLOCK_EXPORT HwDatablockBaseTemplateExtended : public HwDatablock {
public:
    // The block image field by field; the value array always has its full capacity.
    struct HwSDatablock {
        unsigned short blockId;
        unsigned short blockSize;
        unsigned short checksum;
        unsigned short alignment;
        char descriptors[MaxDescriptors][16]; // text, not terminated
        unsigned int rowCount;
        unsigned int colCount;
        TRaw values[MaxRows][MaxCols];
    };
    static_assert(sizeof(HwSDatablock) ==
                      16 + 16 * MaxDescriptors + MaxRows * MaxCols * sizeof(TRaw),
                  "the record is the block image without padding");

    // Comparison of findFirstValueInCol.
    enum THwERelationOperator {
        HwRelEqual = 0,
        HwRelGreater = 1,
        HwRelLess = 2,
        HwRelGreaterEqual = 3,
        HwRelLessEqual = 4
    };

    HwDatablockBaseTemplateExtended(const char* name, int blockId, int instance, double factor,
                                    bool stopConversionOnError);
    ~HwDatablockBaseTemplateExtended() override;

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
    // Appends all 16 bytes of descriptor i (zero bytes included); nothing for a wrong i.
    void getDescriptor(int i, std::string& text);
    // Overwrites the start of descriptor i with up to 16 characters of text.
    void setDescriptor(int i, std::string& text);

    // 0 on success, 1 (error 1040001, object unchanged) when the image's checksum is wrong.
    int setBlock(HwSDatablock* block);
    void swapBlock(HwSDatablock* block);

    // Name, id, instance, factor and capacities are this object's; the result goes to target.
    std::istream& readbin(std::istream& in, HwDatablockBaseTemplateExtended& target);
    std::istream& searchascii(std::istream& in, HwDatablockBaseTemplateExtended& target);
    // Reads this block's section like searchascii, but reports what went wrong instead of
    // ending the process or writing anything; `target` is loaded only when the result is ok().
    // Stricter than searchascii: a missing "ID:" or name fails whatever
    // getStopConversionOnError() says, and so do counts that are negative as signed 32-bit
    // numbers and values that cannot be read as numbers of the table.
    TextReadStatus readSection(std::istream& in, HwDatablockBaseTemplateExtended& target);
    // This object's name with the counts and cells of source.
    std::ostream& conv2ascii(std::ostream& out, HwDatablockBaseTemplateExtended& source);
    std::ostream& printToStream(std::ostream& out) override;

private:
    detail::TableCore<TRaw, TValue> core();

    int instance;
    int blockId;
    std::string name;
    double factor;
    unsigned int maxRows;
    unsigned int maxCols;
    unsigned int descriptorCount;
};

// The instantiations the library provides.
extern template class HwDatablockBaseTemplateExtended<int, int, 10, 4, 350>;
extern template class HwDatablockBaseTemplateExtended<int, int, 10, 5, 750>;
extern template class HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>;

} // namespace Tupsim
