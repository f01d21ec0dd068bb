// Typed two-dimensional calibration table with a scale factor behind the block header.
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
class EPROMDATABLOCK_EXPORT HwDatablockBaseTemplate : public HwDatablock {
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

    HwDatablockBaseTemplate(const char* name, int blockId, int instance, double factor,
                            bool stopConversionOnError);
    ~HwDatablockBaseTemplate() override;

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

    // 0 on success, 1 (error 1040001, object unchanged) when the image's checksum is wrong.
    int setBlock(HwSDatablock* block);
    void swapBlock(HwSDatablock* block);

    // Name, id, instance, factor and capacities are this object's; the result goes to target.
    std::istream& readbin(std::istream& in, HwDatablockBaseTemplate& target);
    std::istream& searchascii(std::istream& in, HwDatablockBaseTemplate& target);
    // Reads this block's section like searchascii, but reports what went wrong instead of
    // ending the process or writing anything; `target` is loaded only when the result is ok().
    // Stricter than searchascii: a missing "ID:" or name fails whatever
    // getStopConversionOnError() says, and so do counts that are negative as signed 32-bit
    // numbers and values that cannot be read as numbers of the table.
    TextReadStatus readSection(std::istream& in, HwDatablockBaseTemplate& target);
    // This object's name with the counts and cells of source.
    std::ostream& conv2ascii(std::ostream& out, HwDatablockBaseTemplate& source);
    std::ostream& printToStream(std::ostream& out) override;

protected:
    // The headed line form, for blocks that write their section with a header of their own.
    std::ostream& writeHeadedLineForm(std::ostream& out, const HeadedLineForm& form,
                                      HwDatablockBaseTemplate& source);
    std::istream& readHeadedLineForm(std::istream& in, const HeadedLineForm& form,
                                     HwDatablockBaseTemplate& target);
    // The headed line form, reported on as readSection reports.
    TextReadStatus readHeadedSection(std::istream& in, const HeadedLineForm& form,
                                     HwDatablockBaseTemplate& target);

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
extern template class HwDatablockBaseTemplate<char, double, 12, 1>;
extern template class HwDatablockBaseTemplate<short, short, 6, 1>;
extern template class HwDatablockBaseTemplate<unsigned short, double, 50, 1>;
extern template class HwDatablockBaseTemplate<unsigned short, double, 64, 1>;
extern template class HwDatablockBaseTemplate<unsigned short, double, 64, 50>;
extern template class HwDatablockBaseTemplate<int, int, 8, 1>;
extern template class HwDatablockBaseTemplate<int, int, 10, 1>;
extern template class HwDatablockBaseTemplate<int, int, 4, 10>;
extern template class HwDatablockBaseTemplate<int, int, 2, 128>;
extern template class HwDatablockBaseTemplate<int, int, 6, 50>;
extern template class HwDatablockBaseTemplate<int, int, 4, 292>;
extern template class HwDatablockBaseTemplate<int, int, 5, 350>;
extern template class HwDatablockBaseTemplate<int, double, 1, 128>;
extern template class HwDatablockBaseTemplate<int, double, 2, 128>;
extern template class HwDatablockBaseTemplate<int, double, 4, 50>;
extern template class HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 4>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 10, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 20, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 32, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 50, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 128, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 150, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 200, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 292, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 350, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 600, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 750, 1>;
extern template class HwDatablockBaseTemplate<unsigned int, double, 4, 32>;
extern template class HwDatablockBaseTemplate<float, float, 50, 4>;
extern template class HwDatablockBaseTemplate<double, double, 50, 1>;
extern template class HwDatablockBaseTemplate<double, double, 200, 1>;

} // namespace Tupsim
