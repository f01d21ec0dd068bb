// Keeping and summarising what a section reader reports.
#include "TextReadStatus.h"

namespace Tupsim {

constexpr int TextReadStatus::kMaxComplaints;

void TextReadStatus::addComplaint(long long line, const std::string& text) {
    if (complaints.size() < static_cast<std::size_t>(kMaxComplaints))
        complaints.push_back({line, text});
    else
        ++moreComplaints;
}

std::string TextReadStatus::message() const {
    const auto located = [](long long line, const std::string& text) {
        return line > 0 ? "line " + std::to_string(line) + ": " + text : text;
    };
    std::string text = ok() ? std::string("ok") : located(line, detail);
    for (const TextReadComplaint& complaint : complaints)
        text += "; " + located(complaint.line, complaint.text);
    if (moreComplaints > 0)
        text += "; and " + std::to_string(moreComplaints) + " more lines like this";
    return text;
}

} // namespace Tupsim
