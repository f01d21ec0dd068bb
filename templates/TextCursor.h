// Formatted reading of numbers and words from text in memory, with the results and stream
// states of the standard library's formatted input in the classic locale, at the speed of
// std::from_chars.
#pragma once

#include "EpromDatablockGlobal.h"

#include <cstddef>
#include <istream>
#include <string>

namespace Tupsim {
namespace detail {

// The whole content of `in` from its start; the stream stands at its start afterwards. Empty
// when the stream can not be rewound.
EPROMDATABLOCK_EXPORT std::string slurp(std::istream& in);

// A read position in text with the failbit and eofbit of an input stream. Every operation
// behaves as the std::istream operation named beside it would on an istringstream of the
// same text: what it consumes, what it stores, which state bits it sets. Exported for the tests
// that hold it against the streams.
class EPROMDATABLOCK_EXPORT TextCursor {
public:
    TextCursor(const char* text, std::size_t size) : begin(text), end(text + size), at(text) {}
    explicit TextCursor(const std::string& text) : TextCursor(text.data(), text.size()) {}
    explicit TextCursor(std::string&&) = delete; // the cursor does not own its text

    bool good() const { return !failed && !ended; }
    bool fail() const { return failed; }
    bool eof() const { return ended; }
    explicit operator bool() const { return !failed; }
    void clear() {
        failed = false;
        ended = false;
    }
    void setFail() { failed = true; }

    std::size_t offset() const { return static_cast<std::size_t>(at - begin); }
    // seekg: clears eofbit; no move on a failed cursor.
    bool seek(std::size_t to);
    // tellg: -1 and failbit when the cursor is not good.
    long long tell() {
        if (!good()) {
            failed = true;
            return -1;
        }
        return static_cast<long long>(offset());
    }

    // peek()
    int peek() {
        if (!good()) {
            failed = true;
            return std::char_traits<char>::eof();
        }
        if (at == end) {
            ended = true;
            return std::char_traits<char>::eof();
        }
        return static_cast<unsigned char>(*at);
    }

    // get(c)
    bool get(char& c) {
        if (!good()) {
            failed = true;
            return false;
        }
        if (at == end) {
            ended = failed = true;
            return false;
        }
        c = *at++;
        return true;
    }
    // get(c) until c is `wanted`; false when the text ends first.
    bool skipTo(char wanted);
    void skipSpace(); // >> std::ws
    // >> std::string, without the copy: the word is [first, first + length).
    bool word(const char*& first, std::size_t& length);
    bool word(std::string& text);

    // operator>> of the arithmetic types the tables hand out.
    TextCursor& operator>>(short& value);
    TextCursor& operator>>(int& value);
    TextCursor& operator>>(unsigned int& value);
    TextCursor& operator>>(long long& value);
    TextCursor& operator>>(float& value);
    TextCursor& operator>>(double& value);

    // Moves the real stream (read from its start into this text) to where the cursor stands,
    // with the cursor's state bits.
    void handBack(std::istream& in) const;

private:
    bool sentry();
    template <typename T> bool integer(T& value);
    template <typename T> TextCursor& floating(T& value);

    const char* begin;
    const char* end;
    const char* at;
    bool failed = false;
    bool ended = false;
};

} // namespace detail
} // namespace Tupsim
