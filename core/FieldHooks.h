// Host values in block images: a store passes the value through HwDatablock's byte-order hook and
// then writes it as the host holds it, a load reads it so and passes it back through the hook, so
// that the reference form (least significant byte first) is the same image on every host. The
// byte-order conversion turns a field the other way: read as held, hooked, written as held.
#pragma once

#include "HwDatablock.h"
#include "core/HwBytes.h"

#include <cstdint>

namespace Tupsim {
namespace fieldhooks {

// The hook for one value; single bytes have no order.
template <typename T> void hook(T& value) {
    HwDatablock::SwapIntel2Ppc(value);
}
inline void hook(unsigned char&) {}
inline void hook(signed char&) {}

// The host value of the field at `offset`; 0 when it lies beyond the image.
template <typename T> T load(const QByteArray& image, std::uint64_t offset) {
    T value{};
    if (!bytes::copyOut(image, offset, &value, sizeof value))
        return T{};
    hook(value);
    return value;
}

// Stores a host value at `offset`; false (nothing written) when it does not fit.
template <typename T> bool store(QByteArray& image, std::uint64_t offset, T value) {
    hook(value);
    return bytes::copyIn(image, offset, &value, sizeof value);
}

// The field at `offset` as the host holds it, without the hook: what the byte-order conversion
// reads, so that storing it turns the field (reversed on a big-endian host, unchanged on a
// little-endian one); 0 when it lies beyond the image.
template <typename T> T asHeld(const QByteArray& image, std::uint64_t offset) {
    T value{};
    if (!bytes::copyOut(image, offset, &value, sizeof value))
        return T{};
    return value;
}

} // namespace fieldhooks
} // namespace Tupsim
