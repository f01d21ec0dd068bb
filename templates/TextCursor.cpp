// Formatted reading from text in memory with the results of the classic locale's stream input.
#include "templates/TextCursor.h"

#include <charconv>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale.h>

namespace Tupsim {
namespace detail {

namespace {

// The white space of the classic locale.
inline bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

locale_t classicLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", locale_t(0));
    return locale;
}

// The conversion behind the formatted input of floating types: strtod in the classic locale,
// an overflow stored as the largest finite value and failed; nothing else fails.
bool convertSlowly(const std::string& text, double& value) {
    char* stop = nullptr;
    value = strtod_l(text.c_str(), &stop, classicLocale());
    if (stop == text.c_str() || *stop != '\0') {
        value = 0.0;
        return false;
    }
    if (value == std::numeric_limits<double>::infinity() ||
        value == -std::numeric_limits<double>::infinity()) {
        value =
            value > 0 ? std::numeric_limits<double>::max() : -std::numeric_limits<double>::max();
        return false;
    }
    return true;
}

bool convertSlowly(const std::string& text, float& value) {
    char* stop = nullptr;
    value = strtof_l(text.c_str(), &stop, classicLocale());
    if (stop == text.c_str() || *stop != '\0') {
        value = 0.0f;
        return false;
    }
    if (value == std::numeric_limits<float>::infinity() ||
        value == -std::numeric_limits<float>::infinity()) {
        value = value > 0 ? std::numeric_limits<float>::max() : -std::numeric_limits<float>::max();
        return false;
    }
    return true;
}

// Decimal digits with an optional sign as the integer extraction takes them, accumulated in U
// up to `limit` (the magnitude allowed for the sign read). `overflow` when past it.
template <typename U>
void accumulate(const char*& p, const char* end, U limit, bool& anyDigit, bool& overflow,
                U& result) {
    const U tenth = limit / 10;
    for (; p != end && isDigit(*p); ++p) {
        anyDigit = true;
        const U digit = static_cast<U>(*p - '0');
        if (result > tenth) {
            overflow = true;
        } else {
            result *= 10;
            overflow |= result > limit - digit;
            result += digit;
        }
    }
}

} // namespace

std::string slurp(std::istream& in) {
    in.clear();
    std::string text;
    std::streambuf* buffer = in.rdbuf();
    if (buffer == nullptr)
        return text;
    const std::streamoff size = buffer->pubseekoff(0, std::ios::end, std::ios::in);
    // A stream that can not rewind gives the readers nothing, as seekg(0) failing would.
    if (buffer->pubseekpos(0, std::ios::in) == std::streampos(std::streamoff(-1)))
        return text;
    if (size > 0)
        text.reserve(static_cast<std::size_t>(size));
    char chunk[1 << 14];
    for (;;) {
        const std::streamsize got = buffer->sgetn(chunk, sizeof chunk);
        if (got <= 0)
            break;
        text.append(chunk, static_cast<std::size_t>(got));
    }
    buffer->pubseekpos(0, std::ios::in);
    return text;
}

bool TextCursor::seek(std::size_t to) {
    ended = false;
    if (failed)
        return false;
    at = begin + std::min(to, static_cast<std::size_t>(end - begin));
    return true;
}

bool TextCursor::skipTo(char wanted) {
    if (!good()) {
        failed = true;
        return false;
    }
    const void* found = std::memchr(at, wanted, static_cast<std::size_t>(end - at));
    if (found == nullptr) {
        at = end;
        ended = failed = true;
        return false;
    }
    at = static_cast<const char*>(found) + 1;
    return true;
}

void TextCursor::skipSpace() {
    if (!good()) {
        failed = true;
        return;
    }
    while (at != end && isSpace(*at))
        ++at;
    if (at == end)
        ended = true;
}

bool TextCursor::sentry() {
    if (!good()) {
        failed = true;
        return false;
    }
    while (at != end && isSpace(*at))
        ++at;
    if (at == end) {
        ended = failed = true;
        return false;
    }
    return true;
}

bool TextCursor::word(const char*& first, std::size_t& length) {
    if (!sentry())
        return false;
    first = at;
    while (at != end && !isSpace(*at))
        ++at;
    length = static_cast<std::size_t>(at - first);
    if (at == end)
        ended = true;
    return true;
}

bool TextCursor::word(std::string& text) {
    const char* first = nullptr;
    std::size_t length = 0;
    if (!word(first, length))
        return false;
    text.assign(first, length);
    return true;
}

// The integer extraction of num_get in base 10: a sign, digits; no digit stores 0 and fails, an
// overflow stores the limit of the sign read and fails, a negative number of an unsigned type
// wraps. false when failed.
template <typename T> bool TextCursor::integer(T& value) {
    using U = typename std::make_unsigned<T>::type;
    bool negative = false;
    if (*at == '-' || *at == '+')
        negative = *at++ == '-';
    const U limit = negative && std::is_signed<T>::value
                        ? static_cast<U>(std::numeric_limits<T>::max()) + 1
                        : static_cast<U>(std::numeric_limits<T>::max());
    bool anyDigit = false;
    bool overflow = false;
    U result = 0;
    accumulate(at, end, limit, anyDigit, overflow, result);
    if (at == end)
        ended = true;
    if (!anyDigit) {
        value = 0;
        failed = true;
    } else if (overflow) {
        value = negative && std::is_signed<T>::value ? std::numeric_limits<T>::min()
                                                     : std::numeric_limits<T>::max();
        failed = true;
    } else {
        value = static_cast<T>(negative ? U(0) - result : result);
    }
    return !failed;
}

// int and short are read as long and then narrowed: out of range fails at the type's limit.
template <typename Narrow> static void narrowLong(long long wide, Narrow& value, bool& failed) {
    if (wide < std::numeric_limits<Narrow>::min()) {
        failed = true;
        value = std::numeric_limits<Narrow>::min();
    } else if (wide > std::numeric_limits<Narrow>::max()) {
        failed = true;
        value = std::numeric_limits<Narrow>::max();
    } else {
        value = static_cast<Narrow>(wide);
    }
}

TextCursor& TextCursor::operator>>(short& value) {
    if (sentry()) {
        long long wide = 0;
        integer(wide);
        narrowLong(wide, value, failed);
    }
    return *this;
}

TextCursor& TextCursor::operator>>(int& value) {
    if (sentry()) {
        long long wide = 0;
        integer(wide);
        narrowLong(wide, value, failed);
    }
    return *this;
}

TextCursor& TextCursor::operator>>(unsigned int& value) {
    if (sentry())
        integer(value);
    return *this;
}

TextCursor& TextCursor::operator>>(long long& value) {
    if (sentry())
        integer(value);
    return *this;
}

// The floating extraction of num_get: a sign, digits with at most one point, and an exponent
// behind at least one digit; the characters that fit are consumed, then converted whole or not
// at all.
template <typename T> TextCursor& TextCursor::floating(T& value) {
    if (!sentry())
        return *this;
    const char* const first = at;
    if (*at == '+' || *at == '-')
        ++at;
    const char* const number = *first == '+' ? at : first; // from_chars takes no '+'
    bool mantissa = false;
    bool point = false;
    bool exponent = false;
    bool exponentDigits = false;
    while (at != end) {
        const char c = *at;
        if (isDigit(c)) {
            mantissa = true;
            exponentDigits = exponent;
        } else if (c == '.' && !point && !exponent) {
            point = true;
        } else if ((c == 'e' || c == 'E') && !exponent && mantissa) {
            exponent = true;
            if (at + 1 != end && (at[1] == '+' || at[1] == '-'))
                ++at;
        } else {
            break;
        }
        ++at;
    }
    if (at == end)
        ended = true;
    if (!mantissa || (exponent && !exponentDigits)) {
        value = 0;
        failed = true;
        return *this;
    }
    const std::from_chars_result done = std::from_chars(number, at, value);
    if (done.ec == std::errc() && done.ptr == at)
        return *this;
    // Out of range (or anything from_chars sees otherwise): the conversion itself decides.
    if (!convertSlowly(std::string(first, at), value))
        failed = true;
    return *this;
}

TextCursor& TextCursor::operator>>(float& value) {
    return floating(value);
}

TextCursor& TextCursor::operator>>(double& value) {
    return floating(value);
}

void TextCursor::handBack(std::istream& in) const {
    in.clear();
    in.seekg(static_cast<std::streamoff>(offset()));
    std::ios::iostate state = std::ios::goodbit;
    if (failed)
        state |= std::ios::failbit;
    if (ended)
        state |= std::ios::eofbit;
    in.setstate(state);
}

} // namespace detail
} // namespace Tupsim
