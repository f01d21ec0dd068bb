// Conversions between stored and handed-out table values: truncation toward zero, saturated at
// the target's range so that no conversion is undefined.
#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

namespace Tupsim {
namespace detail {

// The arithmetic type of a stored value: a char cell holds a signed 8-bit number on every host
// (plain char is unsigned on some, s390x and PowerPC among them).
template <typename T>
using Arithmetic = typename std::conditional<std::is_same<T, char>::value, signed char, T>::type;

template <typename T> T truncateTo(double value) {
    if constexpr (std::is_same<T, char>::value) {
        return static_cast<char>(truncateTo<signed char>(value));
    } else if constexpr (std::is_integral<T>::value) {
        if (std::isnan(value))
            return T(0);
        const double low = static_cast<double>(std::numeric_limits<T>::lowest());
        const double high = static_cast<double>(std::numeric_limits<T>::max());
        if (value <= low)
            return std::numeric_limits<T>::lowest();
        if (value >= high)
            return std::numeric_limits<T>::max();
        return static_cast<T>(value);
    } else if constexpr (std::is_same<T, float>::value) {
        const double top = static_cast<double>(std::numeric_limits<float>::max());
        if (std::isfinite(value) && std::fabs(value) > top)
            return value > 0 ? std::numeric_limits<float>::infinity()
                             : -std::numeric_limits<float>::infinity();
        return static_cast<float>(value);
    } else {
        return static_cast<T>(value);
    }
}

// A value read from a file back to its stored scale; a factor of 0 stores it unscaled.
inline double unscale(double value, double factor) {
    return factor == 0.0 ? value : value / factor;
}

} // namespace detail
} // namespace Tupsim
