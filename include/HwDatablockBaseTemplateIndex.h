// Calibration table whose rows each carry a signed index word behind the value array.
#pragma once

#include "HwDatablock.h"
#include "TextReadStatus.h"

#include <istream>
#include <ostream>
#include <string>

namespace Tupsim {

struct HeadedLineForm;
namespace detail {
template <typename TRaw, typename TValue> class TableCore;
}

template <typename TRaw, typename TValue, unsigned int MaxRows, unsigned int MaxCols>
class EPROMDATABLOCK_EXPORT HwDatablockBaseTemplateIndex : public HwDatablock {
public:
    // The block image field by field; value array and index column have their full capacity.
    struct HwSDatablock {
        unsigned short blockId;
        unsigned short blockSize;
        unsigned short checksum;
        unsigned short alignment;
        unsigned int rowCount;
        unsigned int colCount;
        TRaw values[MaxRows][MaxCols];
        int index[MaxRows];
    };
    static_assert(sizeof(HwSDatablock) == 16 + MaxRows * MaxCols * sizeof(TRaw) + 4 * MaxRows,
                  "the record is the block image without padding");

    // Comparison of findFirstValueInCol.
    enum THwERelationOperator {
        HwRelEqual = 0,
        HwRelGreater = 1,
        HwRelLess = 2,
        HwRelGreaterEqual = 3,
        HwRelLessEqual = 4
    };

    HwDatablockBaseTemplateIndex(const char* name, int blockId, int instance, double factor,
                                 bool stopConversionOnError);
    ~HwDatablockBaseTemplateIndex() override;

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
    // The index word of a row; 0 (and nothing stored) past the capacity.
    int getIndex(unsigned int row);
    void setIndex(int value, unsigned int row);

    // 0 on success, 1 (error 1040001, object unchanged) when the image's checksum is wrong.
    int setBlock(HwSDatablock* block);
    void swapBlock(HwSDatablock* block);

    // Name, id, instance, factor and capacities are this object's; the result goes to target.
    std::istream& readbin(std::istream& in, HwDatablockBaseTemplateIndex& target);
    std::istream& searchascii(std::istream& in, HwDatablockBaseTemplateIndex& target);
    // Reads this block's section like searchascii, but keeps the complaints in the result
    // instead of writing them to standard output; `target` is loaded only when the result is
    // ok(). Complaints do not fail the read (the block is loaded as searchascii loads it); a
    // missing id or count line, a negative count and a count above the capacity do.
    TextReadStatus readSection(std::istream& in, HwDatablockBaseTemplateIndex& target);
    // The line form: this object's name with the counts, indexes and cells of source.
    std::ostream& conv2ascii(std::ostream& out, HwDatablockBaseTemplateIndex& source);
    std::ostream& printToStream(std::ostream& out) override;

protected:
    // The headed line form, for blocks that write their section with a header of their own.
    std::ostream& writeHeadedLineForm(std::ostream& out, const HeadedLineForm& form,
                                      HwDatablockBaseTemplateIndex& source);
    std::istream& readHeadedLineForm(std::istream& in, const HeadedLineForm& form,
                                     HwDatablockBaseTemplateIndex& target);
    // The headed line form, reported on as readSection reports.
    TextReadStatus readHeadedSection(std::istream& in, const HeadedLineForm& form,
                                     HwDatablockBaseTemplateIndex& target);

private:
    detail::TableCore<TRaw, TValue> core();

    int instance;
    int blockId;
    std::string name;
    double factor;
    unsigned int maxRows;
    unsigned int maxCols;
};

// The instantiations the library provides.
extern template class HwDatablockBaseTemplateIndex<int, int, 27, 20>;
extern template class HwDatablockBaseTemplateIndex<int, int, 27, 200>;
extern template class HwDatablockBaseTemplateIndex<int, int, 35, 150>;
extern template class HwDatablockBaseTemplateIndex<int, int, 40, 200>;
extern template class HwDatablockBaseTemplateIndex<int, int, 80, 50>;

} // namespace Tupsim
