// What each element type code of a self-describing image means to the walk and to the printers.
#pragma once

#include "ETypeId.h"

#include <cstddef>

namespace Tupsim {
namespace elements {

// How the byte-order conversion treats one element.
enum class Order : unsigned char {
    Reverse,  // its bytes are reversed (a single byte stays as it is)
    Keep,     // left as it is: fixed-length texts and NONE
    UpToZero, // a text up to and including its terminating zero, left as it is
};

struct Type {
    unsigned char code;
    const char* name;        // getTypeString
    unsigned char printSize; // size_in_byte, which the printers step by
    unsigned char walkWidth; // bytes the walk of the image takes per element
    Order order;
    unsigned char decimals; // fixed-point types; 0 for the others
};

inline constexpr Type kTypes[] = {
#define EPROM_ELEMENT_TYPE(code, id, name, printSize, walkWidth, order, decimals)                  \
    {code, name, printSize, walkWidth, Order::order, decimals},
#include "core/ElementTypes.def"
#undef EPROM_ELEMENT_TYPE
};

inline constexpr std::size_t kCount = sizeof kTypes / sizeof kTypes[0];

// The row of `code`; NONE's row for unknown codes.
constexpr const Type& of(unsigned int code) {
    return kTypes[code < kCount ? code : 0];
}

// True when elements of `code` occupy bytes in the image.
constexpr bool takesBytes(unsigned int code) {
    return of(code).walkWidth > 0;
}

namespace check {
#define EPROM_ELEMENT_TYPE(code, id, ...) static_assert(code == id, "code and enumerator differ");
#include "core/ElementTypes.def"
#undef EPROM_ELEMENT_TYPE
constexpr bool inCodeOrder() {
    for (std::size_t i = 0; i < kCount; ++i)
        if (kTypes[i].code != i)
            return false;
    return true;
}
static_assert(inCodeOrder(), "rows must follow the codes");
} // namespace check

} // namespace elements
} // namespace Tupsim
