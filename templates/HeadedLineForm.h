// The headed line form: a commented header in front of a line-oriented section, written and
// read by the RF-board blocks that carry a title and a key of their own.
#pragma once

#include "templates/LineForm.h"

namespace Tupsim {

struct HeadedLineForm {
    const char* title;           // "ATT-CAL-FREQ"
    const char* key;             // "BLOCK_KIV_RFBO_ATT_CAL_FREQ"
    int linesAllowed;            // lines between the id and the count line before the complaint
    const char* linesMessage;    // written behind "ERROR: "
    const char* rowCountMessage; // written behind "ERROR: " when the row count differs
};

namespace detail {

LineDialect headedLineDialect(const HeadedLineForm& form);

// The section with its header; rows are numbered from 1, values have ten decimals.
void writeHeadedLineForm(std::ostream& out, const HeadedLineForm& form, const TableCells& cells);

} // namespace detail
} // namespace Tupsim
