// Outcome of reading one table section from an ASCII calibration file without ending the process.
#pragma once

#include "EpromDatablockGlobal.h"

#include <string>
#include <vector>

namespace Tupsim {

// One complaint of a line-oriented reader, as that reader writes it to standard output.
struct TextReadComplaint {
    long long line = 0; // 1-based line of the text the complaint is about
    std::string text;   // the complaint as written, "ERROR: ..." without the newline
};

// What `readSection` found. Failures leave the target block untouched; complaints alone do not
// fail a section, since the line-oriented readers load the block despite them.
struct EPROMDATABLOCK_EXPORT TextReadStatus {
    enum Code {
        Ok,            // the section was read and loaded
        MissingKey,    // a key of the section was not found: see `key`
        CountTooHigh,  // the row or column count is above the block's capacity
        CountNegative, // the row or column count is negative taken as a signed 32-bit number
        BadValue       // a value of the section could not be read as a number of the table
    };

    Code code = Ok;
    // MissingKey only: the key that was not found: "ID:", the block name or the key of a headed
    // section, "COUNT:", "*" (between the counts) or ":" (in front of a row).
    std::string key;
    // 1-based line of the text where the read went wrong; for a key not found, the line where
    // the search ended (the last line of the text). 0 when not tied to a line or the text is
    // empty.
    long long line = 0;
    // Failures only: what went wrong, in words, e.g. "row count 5 above the capacity 4".
    std::string detail;
    // The first kMaxComplaints complaints of a line-oriented reader, in the order written.
    std::vector<TextReadComplaint> complaints;
    // How many complaints came after those kept.
    long long moreComplaints = 0;

    static constexpr int kMaxComplaints = 5;

    // No failure; complaints may still be there.
    bool ok() const { return code == Ok; }
    // Keeps a complaint while there is room, otherwise only counts it.
    void addComplaint(long long line, const std::string& text);
    // One line: the failure as "line 12: <detail>" (or "ok"), then the kept complaints as
    // "line 3: <text>", then "and 995 more lines like this"; the parts joined by "; ".
    std::string message() const;
};

} // namespace Tupsim
