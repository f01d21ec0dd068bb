// Text of single elements of self-describing images.
#include "directory/ElementText.h"

#include "ETypeId.h"
#include "core/ElementTypes.h"
#include "core/HwBytes.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <limits>
#include <sstream>

namespace Tupsim {

namespace {

// Reads a T from the first `width` bytes at p; bytes it lacks count as zero.
template <typename T> T valueOf(const unsigned char* p, std::size_t width) {
    unsigned char buffer[sizeof(T)] = {};
    std::memcpy(buffer, p, std::min(width, sizeof(T)));
    return bytes::getLE<T>(reinterpret_cast<const char*>(buffer), sizeof(T), 0);
}

// A signed fixed-point raw value of 2 or 4 bytes; a narrower field is sign-extended.
std::int64_t fixedRaw(const unsigned char* p, std::size_t width, std::size_t natural) {
    const std::size_t n = std::min(width, natural);
    if (n >= 4)
        return valueOf<qint32>(p, 4);
    if (n >= 2)
        return valueOf<qint16>(p, 2);
    return n == 1 ? static_cast<signed char>(p[0]) : 0;
}

// Decimals of a fixed-point type; 4 for any other code.
int decimalsOf(unsigned int type) {
    const int decimals = elements::of(type).decimals;
    return decimals > 0 ? decimals : 4;
}

bool writeLongDouble(std::ostream& out, const unsigned char* p, std::size_t width) {
#if LDBL_MANT_DIG == 64 && Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    long double value = 0;
    std::memcpy(&value, p, std::min<std::size_t>(width, 10)); // x87 extended: 10 bytes used
    out << value;
    return true;
#else
    // Other hosts decode the x87 layout (64-bit mantissa with its integer bit, then sign and
    // 15-bit exponent) arithmetically, so that they print the value this host prints.
    unsigned char raw[10] = {};
    std::memcpy(raw, p, std::min<std::size_t>(width, 10));
    const quint64 mantissa = bytes::getLE<quint64>(reinterpret_cast<const char*>(raw), 8, 0);
    const unsigned signAndExponent =
        bytes::getLE<quint16>(reinterpret_cast<const char*>(raw), 10, 8);
    const int exponent = static_cast<int>(signAndExponent & 0x7FFF);
    long double value = 0;
    if (exponent == 0x7FFF)
        value = (mantissa << 1) == 0 ? std::numeric_limits<long double>::infinity()
                                     : std::numeric_limits<long double>::quiet_NaN();
    else
        value = std::ldexp(static_cast<long double>(mantissa),
                           (exponent == 0 ? 1 : exponent) - 16383 - 63);
    out << ((signAndExponent & 0x8000) != 0 ? -value : value);
    return true;
#endif
}

} // namespace

bool writeElementText(std::ostream& out, const unsigned char* p, std::size_t width,
                      unsigned int type) {
    if (p == nullptr)
        return false;
    std::ostringstream text;
    switch (type) {
    case UINT8:
        text << unsigned(valueOf<quint8>(p, width));
        break;
    case INT8:
        text << int(valueOf<qint8>(p, width));
        break;
    case UINT16:
        text << valueOf<quint16>(p, width);
        break;
    case INT16:
        text << valueOf<qint16>(p, width);
        break;
    case UINT32:
        text << valueOf<quint32>(p, width);
        break;
    case INT32:
        text << valueOf<qint32>(p, width);
        break;
    case UINT64:
        text << valueOf<quint64>(p, width);
        break;
    case INT64:
        text << valueOf<qint64>(p, width);
        break;
    case FLOAT:
        text << valueOf<float>(p, width);
        break;
    case DOUBLE:
        text << valueOf<double>(p, width);
        break;
    case LONG_DOUBLE:
        if (!writeLongDouble(text, p, width))
            return false;
        break;
    case FIX16D1:
    case FIX16D2:
    case FIX16D3:
    case FIX16D4:
    case FIX32D1:
    case FIX32D2:
    case FIX32D3:
    case FIX32D4: {
        static const double scale[5] = {1, 10, 100, 1000, 10000};
        const int decimals = decimalsOf(type);
        const std::size_t natural = type <= FIX16D4 ? 2 : 4;
        text << std::fixed << std::setprecision(decimals)
             << static_cast<double>(fixedRaw(p, width, natural)) / scale[decimals];
        break;
    }
    case CHAR:
        if (width > 0 && p[0] != 0)
            text << static_cast<char>(p[0]);
        break;
    case CHAR5:
    case CHAR10:
    case CHAR15:
    case CHAR20:
    case STRING: {
        const auto* end = std::find(p, p + width, 0);
        text.write(reinterpret_cast<const char*>(p), end - p);
        break;
    }
    default:
        return false;
    }
    out << text.str();
    return true;
}

void printElement(std::ostream& out, const unsigned char* p, std::size_t width, unsigned int type) {
    writeElementText(out, p, width, type);
    if (type == CHAR5)
        out << "    ";
}

} // namespace Tupsim
