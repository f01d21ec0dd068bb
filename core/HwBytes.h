// Checked access to untrusted block bytes: every field read or write goes through here.
#pragma once

#include <QByteArray>
#include <QtEndian>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace Tupsim {
namespace bytes {

// True when [offset, offset + width) lies inside a buffer of `size` bytes; no overflow.
inline bool fits(std::uint64_t size, std::uint64_t offset, std::uint64_t width) {
    return offset <= size && width <= size - offset;
}

// Reads a T stored least significant byte first; 0 when the field does not fit.
template <typename T> T getLE(const char* base, std::uint64_t size, std::uint64_t offset) {
    static_assert(std::is_trivially_copyable<T>::value, "plain values only");
    T value{};
    if (base == nullptr || !fits(size, offset, sizeof(T)))
        return T{};
    std::memcpy(&value, base + offset, sizeof(T));
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    char* p = reinterpret_cast<char*>(&value);
    std::reverse(p, p + sizeof(T));
#endif
    return value;
}

template <typename T> T getLE(const QByteArray& image, std::uint64_t offset) {
    return getLE<T>(image.constData(), static_cast<std::uint64_t>(image.size()), offset);
}

// Reads a T stored most significant byte first; 0 when the field does not fit.
template <typename T> T getBE(const QByteArray& image, std::uint64_t offset) {
    T value{};
    if (!fits(static_cast<std::uint64_t>(image.size()), offset, sizeof(T)))
        return T{};
    std::memcpy(&value, image.constData() + offset, sizeof(T));
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    char* p = reinterpret_cast<char*>(&value);
    std::reverse(p, p + sizeof(T));
#endif
    return value;
}

// Writes a T least significant byte first; false (nothing written) when it does not fit.
template <typename T> bool putLE(char* base, std::uint64_t size, std::uint64_t offset, T value) {
    static_assert(std::is_trivially_copyable<T>::value, "plain values only");
    if (base == nullptr || !fits(size, offset, sizeof(T)))
        return false;
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    char* p = reinterpret_cast<char*>(&value);
    std::reverse(p, p + sizeof(T));
#endif
    std::memcpy(base + offset, &value, sizeof(T));
    return true;
}

template <typename T> bool putLE(QByteArray& image, std::uint64_t offset, T value) {
    if (!fits(static_cast<std::uint64_t>(image.size()), offset, sizeof(T)))
        return false;
    return putLE<T>(image.data(), static_cast<std::uint64_t>(image.size()), offset, value);
}

// Writes a T most significant byte first; false when it does not fit.
template <typename T> bool putBE(QByteArray& image, std::uint64_t offset, T value) {
    if (!fits(static_cast<std::uint64_t>(image.size()), offset, sizeof(T)))
        return false;
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    char* p = reinterpret_cast<char*>(&value);
    std::reverse(p, p + sizeof(T));
#endif
    std::memcpy(image.data() + offset, &value, sizeof(T));
    return true;
}

// Copies `width` bytes out of the image; false (dest untouched) when they do not fit.
inline bool copyOut(const QByteArray& image, std::uint64_t offset, void* dest,
                    std::uint64_t width) {
    if (!fits(static_cast<std::uint64_t>(image.size()), offset, width))
        return false;
    std::memcpy(dest, image.constData() + offset, width);
    return true;
}

// Copies `width` bytes into the image; false (nothing written) when they do not fit.
inline bool copyIn(QByteArray& image, std::uint64_t offset, const void* src, std::uint64_t width) {
    if (!fits(static_cast<std::uint64_t>(image.size()), offset, width))
        return false;
    std::memcpy(image.data() + offset, src, width);
    return true;
}

} // namespace bytes
} // namespace Tupsim
