// Counts a little above a table's capacity print every counted row, the cells outside the
// capacity as zeros, in every form that prints rows, through the class and through the directory.
#include "TemplateTestSupport.h"

#include <HwCalibTableBlocks.h>
#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>
#include <HwDatablockOldStyleInterpreter.h>

#include "templates/HwDatablockTemplate.h"

#include <functional>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

std::string repeated(const std::string& cell, unsigned times) {
    std::string text;
    for (unsigned i = 0; i < times; ++i)
        text += cell;
    return text;
}

// One form: its printout with the counts at the capacity and with one row more, and the row
// that the one more row must add in front of the closing empty line.
struct Form {
    const char* name;
    std::string countsAtCapacity;
    std::string countsAbove;
    std::string addedRow;
    std::function<std::string(unsigned rows)> print;
};

// A table whose every cell of the capacity holds 7, printed with `rows` rows counted.
template <class Block>
std::function<std::string(unsigned)> printer(Block block, unsigned capacity, unsigned cols) {
    for (unsigned r = 0; r < capacity; ++r)
        for (unsigned c = 0; c < cols; ++c)
            block.setCalValue(7, r, c);
    block.setColCount(cols);
    return [block](unsigned rows) mutable {
        block.setRowCount(rows);
        return printed(block);
    };
}

} // namespace

TEST(CountsAboveCapacity, EveryFormPrintsTheCountedRowsWithZerosOutsideTheTable) {
    using AlcData = HwDatablockBaseTemplate<int, int, 4, 10>;
    using AlcFreq = HwDatablockBaseTemplate<unsigned int, double, 10, 1>;
    using AttCalVec = HwDatablockBaseTemplateIndex<int, int, 27, 20>;
    using Extended = HwDatablockBaseTemplateExtended<int, int, 10, 4, 350>;
    using WexW = HwDatablockBaseTemplateWexW<float, double, 50, 7>;
    using Misc = HwDatablockTemplate<MiscData<int, 10, 1>, int, double, 10, 1>;
    char wexwName[] = "IQ_IMBALANCE";

    // The directory prints the ALC table of a stored image with the class's token form.
    HwDatablockOldStyleInterpreter interpreter;
    const auto throughDirectory = [&interpreter](unsigned rows) {
        QByteArray image = tableImage(176, 15731, rows, 10);
        for (int cell = 0; cell < 40; ++cell)
            putAt<int>(image, 16 + 4 * cell, 7);
        sealChecksum(image);
        HwDatablock block(false);
        load(block, image);
        std::ostringstream out;
        interpreter.printHwDatablockOldStyleInfo(&block, out);
        return out.str();
    };

    const Form forms[] = {
        {"token form, a row per line", "4*10", "5*10", "5: " + repeated("\t0.000", 10) + "\n",
         printer(AlcData("RFBO_ALC_DATA", 15731, 0, 1.0, false), 4, 10)},
        {"token form, a cell per line", "10*1", "11*1", "11:  0.000\n",
         printer(AlcFreq("RFBO_ALC_FREQ", 15730, 0, 100.0, false), 10, 1)},
        {"descriptor form", "4*350", "5*350", "5: " + repeated("\t0.000", 350) + "\n",
         printer(Extended("RFBO_EXT_CAL_VEC_USER_DATA", 16003, 0, 1.0, false), 4, 350)},
        {"ten decimals", "50*7", "51*7", "51: " + repeated("\t0.0000000000", 7) + "\n",
         printer(WexW(wexwName, 15606, 0, 1.0, false), 50, 7)},
        {"misc data", "10*1", "11*1", "11:  0.00000\n",
         printer(Misc("PYM_DCON_TABLE", 12304, 0, 1.0, false), 10, 1)},
        // The index of a row outside the table lies outside the image: it prints as 0.
        {"line form", "27*20", "28*20", "0: " + repeated("\t0.000", 20) + "\n",
         printer(AttCalVec("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1.0, false), 27, 20)},
        {"headed line form", "50 * 4", "51 * 4",
         " 51:  " + repeated("    " + std::string(9, ' ') + "0.0000000000", 4) + "\n",
         printer(HwDatablockKivRfboAttRegAttenuation(), 50, 4)},
        {"through the directory", "4*10", "5*10", "5: " + repeated("\t0.000", 10) + "\n",
         throughDirectory},
    };
    for (const Form& form : forms) {
        const std::string atCapacity = form.print(0);
        const unsigned capacity = std::stoul(form.countsAtCapacity);
        const std::string full = form.print(capacity);
        ASSERT_EQ(full.substr(full.size() - 1), "\n") << form.name;
        std::string expected =
            replaced(full, "COUNT:  " + form.countsAtCapacity, "COUNT:  " + form.countsAbove);
        expected.insert(expected.size() - 1, form.addedRow);
        EXPECT_EQ(form.print(capacity + 1), expected) << form.name;
        // Every counted row of the capacity shows its cells: no row was cut.
        EXPECT_GT(full.size(), atCapacity.size() + capacity * 5) << form.name;
    }
}

// Far beyond the capacity the printout stays in proportion to the image: the count line as
// stored, then at most the rows of the capacity.
TEST(CountsAboveCapacity, CountsOfAMillionCellsPrintWholeBeyondThatBounded) {
    HwDatablockBaseTemplate<int, int, 4, 10> table("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    table.setColCount(1);
    table.setRowCount(1u << 20); // a cell per line, the last one counted
    std::string text = printed(table);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2 + (1 << 20) + 1);
    EXPECT_EQ(text.substr(text.size() - 18), "\n1048576:  0.000\n\n");
    table.setRowCount((1u << 20) + 1);
    text = printed(table);
    EXPECT_EQ(text, "ID:  RFBO_ALC_DATA\nCOUNT:  1048577*1\n1:  0.000\n2:  0.000\n3:  "
                    "0.000\n4:  0.000\n\n");
}
