// Text of single elements of self-describing images.
#pragma once

#include <cstddef>
#include <ostream>

namespace Tupsim {

// Writes the element of `type` held in the `width` bytes at `p` (least significant byte
// first): integers in decimal, fixed-point types with their number of decimals, FLOAT, DOUBLE
// and LONG DOUBLE as a default stream prints them, texts up to their first zero. Returns false,
// writing nothing, for NONE and unknown codes. The stream's formatting state is left alone.
bool writeElementText(std::ostream& out, const unsigned char* p, std::size_t width,
                      unsigned int type);

// An element as the debug pages print it: its text, and four blanks after a CHAR5.
void printElement(std::ostream& out, const unsigned char* p, std::size_t width, unsigned int type);

} // namespace Tupsim
