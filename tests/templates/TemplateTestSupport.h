// Helpers of the table template and catalogue tests: fixtures, table images and text readers.
#pragma once

#include "support/Blocks.h"

#include <TextReadStatus.h>

#include <gtest/gtest.h>
#include <sstream>

namespace Tupsim {
namespace test {

// A zeroed image of `size` bytes with id, size and counts in place, to be sealed by the caller.
inline QByteArray tableImage(unsigned short size, unsigned short id, unsigned rows, unsigned cols,
                             int countsAt = 8) {
    QByteArray image = freshImage(id, size);
    putAt<unsigned>(image, countsAt, rows);
    putAt<unsigned>(image, countsAt + 4, cols);
    return image;
}

// `text` with its first occurrence of `from` replaced by `to`.
inline std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at != std::string::npos)
        text.replace(at, from.size(), to);
    return text;
}

// Reads `text` into `block` with searchascii and returns what the reader wrote to standard output.
template <class Block> std::string readText(Block& block, const std::string& text) {
    std::istringstream in(text);
    testing::internal::CaptureStdout();
    block.searchascii(in, block);
    return testing::internal::GetCapturedStdout();
}

// Reads `text` with readSection; nothing may reach standard output.
template <class Block> TextReadStatus readSection(Block& block, const std::string& text) {
    std::istringstream in(text);
    testing::internal::CaptureStdout();
    const TextReadStatus status = block.readSection(in, block);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    return status;
}

// A stream over `text` that can not seek.
struct Unseekable : std::streambuf {
    explicit Unseekable(std::string& text) { setg(&text[0], &text[0], &text[0] + text.size()); }
};

template <class Block> typename Block::HwSDatablock* record(QByteArray& image) {
    return reinterpret_cast<typename Block::HwSDatablock*>(image.data());
}

} // namespace test
} // namespace Tupsim
