// The number texts of the table forms, fixed notation against snprintf and the reading cursor
// against istringstream, over edge values and many random ones.
#include "templates/TextCursor.h"
#include "templates/TextFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

using namespace Tupsim::detail;

namespace {

std::string printed(const char* format, int bufferSize, double value) {
    std::vector<char> text(static_cast<std::size_t>(bufferSize));
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

std::vector<double> edgeValues() {
    // Signed zeros and NaNs, infinities, the limits of double, float and int, ties, huge values.
    std::istringstream picked(
        "0 -0 nan -nan inf -inf 1.7976931348623157e308 -1.7976931348623157e308 "
        "2.2250738585072014e-308 4.9406564584124654e-324 -0.0004 -0.0005 0.0005 0.0015 0.0025 "
        "1e15 10000000000000001 123456789012345678 1e22 1e23 1e100 -1e300 0.1 0.7 2147483647 "
        "-2147483648 4294967295 3.4028234663852886e38 1.1754943508222875e-38 5e-11 -5e-11 "
        "0.000050000000000000002");
    std::vector<double> values;
    for (std::string word; picked >> word;)
        values.push_back(std::strtod(word.c_str(), nullptr));
    // Exact binary ties at every precision the forms use, on both sides of zero.
    for (int k = -40; k <= 40; ++k)
        values.insert(values.end(), {k / 8.0 + k * 1000, k / 2048.0, k / 65536.0 / 16384.0,
                                     k * 0.001, k * 0.01 + 0.005});
    return values;
}

// Any bit pattern, any float widened as the float tables hand them out, stored integers times
// the usual factors, magnitudes where the decimals decide, and shifted 64-bit integers.
std::vector<double> randomValues() {
    std::mt19937_64 random(20261122);
    std::vector<double> values;
    for (int i = 0; i < 30000; ++i) {
        const std::uint64_t bits = random();
        const std::int32_t low = static_cast<std::int32_t>(bits);
        double value = 0;
        float narrow = 0;
        std::memcpy(&value, &bits, sizeof value);
        std::memcpy(&narrow, &low, sizeof narrow);
        const double kinds[] = {value,
                                narrow,
                                low * 0.01,
                                low * 0.001,
                                std::ldexp(static_cast<double>(bits >> 11), -53) *
                                    std::pow(10.0, i % 13 - 6),
                                static_cast<double>(static_cast<std::int64_t>(bits) >> (i % 40))};
        values.push_back(i % 2 ? kinds[i % 6] : -kinds[i % 6]);
    }
    return values;
}

} // namespace

TEST(FixedNumber, MatchesPrintfForEveryFormatOfTheForms) {
    // printf's format, precision, width and buffer size (0: none) of each form.
    const std::tuple<const char*, int, int, int> formats[] = {
        {"%.3f", 3, 0, 129},    {"%.10f", 10, 0, 129},   {"%.5f", 5, 0, 20},
        {"%21.10f", 10, 21, 0}, {"%21.10f", 10, 21, 16}, {"%.3f", 3, 0, 0}};
    std::vector<double> values = edgeValues();
    const std::vector<double> random = randomValues();
    values.insert(values.end(), random.begin(), random.end());
    for (const auto& [format, precision, width, bufferSize] : formats) {
        int mismatches = 0;
        for (double value : values) {
            const std::string cut = printed(format, bufferSize > 0 ? bufferSize : 400, value);
            std::string text = "<";
            appendFixed(text, value, precision, width, bufferSize);
            if (text != "<" + cut && ++mismatches < 5)
                ADD_FAILURE() << format << " in " << bufferSize << ": " << printed("%a", 64, value)
                              << " gives '" << text.substr(1) << "', printf '" << cut << "'";
        }
        EXPECT_EQ(mismatches, 0) << format;
    }
    EXPECT_EQ(fixedNumber(0.125, 2), "0.12");
    EXPECT_EQ(fixedNumber(-std::nan(""), 10, 21), "                 -nan");
    EXPECT_EQ(fixedNumber(1e300, 5, 0, 20), "1000000000000000052");
    std::string whole;
    appendDecimal(whole, -2147483648LL);
    EXPECT_EQ(whole, "-2147483648");
}

namespace {

// Everything a stream reports after one extraction, as text for comparison.
template <typename T, typename Stream> std::string after(Stream& in, T& value) {
    in >> value;
    std::ostringstream state;
    state.precision(17);
    state << +value << " fail " << in.fail() << " eof " << in.eof() << " peek " << in.peek()
          << " fail " << in.fail() << " eof " << in.eof();
    return state.str();
}

// Reads `text` as a sequence of T with both readers and compares every step, past failures too.
template <typename T> void expectSameReads(const std::string& text, int& mismatches) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    TextCursor cursor(text);
    T fromStream = T(7);
    T fromCursor = T(7);
    for (int step = 0; step < 4; ++step) {
        const std::string expected = after(stream, fromStream);
        const std::string got = after(cursor, fromCursor);
        if (expected != got) {
            if (++mismatches < 8)
                ADD_FAILURE() << "'" << text << "' step " << step << ": stream " << expected
                              << ", cursor " << got;
            return;
        }
        stream.clear();
        cursor.clear();
    }
}

std::vector<std::string> numberTexts() {
    // Hand-picked texts, split at '|': signs, points, exponents, overflows of every type.
    std::vector<std::string> texts;
    std::istringstream picked(
        "| |5|5 | 12.5 |-0|+7 "
        "-8|-|+|+-1|.|.5|5.|-.5e3|1e|1e+|1e-5x|1E5E5|1.2.3|e5|0x10|00012|inf|nan|1e400|-1e400|1e-"
        "400|3e-320|4e38|-4e38|1e-46|32767 32768 -32768 -32769|2147483647 2147483648 -2147483648 "
        "-2147483649|4294967295 4294967296 -1 -4294967295 -4294967296|9223372036854775807 "
        "9223372036854775808|-9223372036854775808 "
        "-9223372036854775809|99999999999999999999999|5.000\t6.000\n|2:|\v\f\r7");
    for (std::string text; std::getline(picked, text, '|');)
        texts.push_back(text);
    std::mt19937 random(7);
    const char alphabet[] = "0123456789012345678901234567890123456789+-.eE \t\nx:";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        const int length = static_cast<int>(random() % 14);
        for (int k = 0; k < length; ++k)
            text += alphabet[random() % (sizeof alphabet - 1)];
        texts.push_back(text);
    }
    return texts;
}

} // namespace

TEST(TextCursor, ReadsNumbersAsTheStreamsDoAndWordsCharactersAndPositions) {
    int mismatches = 0;
    for (const std::string& text : numberTexts()) {
        expectSameReads<short>(text, mismatches);
        expectSameReads<int>(text, mismatches);
        expectSameReads<unsigned int>(text, mismatches);
        expectSameReads<long long>(text, mismatches);
        expectSameReads<float>(text, mismatches);
        expectSameReads<double>(text, mismatches);
    }
    for (double value : randomValues()) { // printed values read back exactly
        char text[64];
        std::snprintf(text, sizeof text, "%.17g", value);
        expectSameReads<double>(text, mismatches);
        std::snprintf(text, sizeof text, "%.9g", value);
        expectSameReads<float>(text, mismatches);
    }
    EXPECT_EQ(mismatches, 0);

    const std::string words = "ID:  NAME\nCOUNT: 2*3\n5.000 7.5";
    std::istringstream stream(words);
    TextCursor cursor(words);
    std::string a;
    std::string b;
    for (int i = 0; i < 4; ++i) {
        stream >> a;
        cursor.word(b);
        EXPECT_EQ(a, b);
        EXPECT_EQ(static_cast<long long>(stream.tellg()), cursor.tell()) << i;
    }
    ASSERT_TRUE(cursor.seek(14));
    EXPECT_TRUE(cursor.skipTo('*'));
    char c = 0;
    EXPECT_TRUE(cursor.get(c));
    EXPECT_EQ(c, '3');
    // Whole numbers may carry a fraction of zeros; anything else fails the cursor.
    int number = 0;
    cursor >> number;
    EXPECT_TRUE(skipZeroFraction(cursor));
    cursor >> number;
    EXPECT_EQ(number, 7);
    EXPECT_FALSE(skipZeroFraction(cursor));
    EXPECT_TRUE(cursor.fail());
    cursor.clear();
    EXPECT_FALSE(cursor.skipTo(':'));
    EXPECT_TRUE(cursor.fail() && cursor.eof());
    EXPECT_EQ(cursor.tell(), -1);
    EXPECT_FALSE(cursor.word(b));
    // A number that ends the words leaves eofbit; the next peek fails the cursor, as a stream.
    const std::string five = "5";
    TextCursor last(five);
    last >> number;
    EXPECT_TRUE(last.eof() && !last.fail());
    EXPECT_FALSE(skipZeroFraction(last) && !last.fail());
    TextCursor ended(five); // at the end but not failed: tell fails it, as tellg does
    ended >> number;
    EXPECT_EQ(ended.tell(), -1);
    EXPECT_TRUE(ended.fail());
    std::istringstream one("5"); // a last chunk of a single character is kept
    EXPECT_EQ(slurp(one), "5");
}
