// Byte layout of a table image: header, optional descriptors, counts, values, optional index.
#pragma once

#include <cstdint>

namespace Tupsim {
namespace detail {

struct TableLayout {
    std::uint32_t maxRows;
    std::uint32_t maxCols;
    std::uint32_t rawSize;         // bytes of one stored value
    std::uint32_t descriptorCount; // 16-byte descriptors right behind the header
    bool hasIndex;                 // one signed 32-bit index per row behind the values

    static constexpr std::uint32_t kHeaderSize = 8;
    static constexpr std::uint32_t kDescriptorSize = 16;

    constexpr std::uint64_t descriptorOffset(std::uint64_t i) const {
        return kHeaderSize + i * kDescriptorSize;
    }
    constexpr std::uint64_t rowCountOffset() const { return descriptorOffset(descriptorCount); }
    constexpr std::uint64_t colCountOffset() const { return rowCountOffset() + 4; }
    constexpr std::uint64_t valuesOffset() const { return rowCountOffset() + 8; }
    constexpr std::uint64_t cellCount() const { return std::uint64_t(maxRows) * maxCols; }
    constexpr std::uint64_t indexOffset() const { return valuesOffset() + cellCount() * rawSize; }
    constexpr std::uint64_t blockSize() const {
        return indexOffset() + (hasIndex ? 4ull * maxRows : 0ull);
    }

    // Cell (row, col) inside the capacity; false for anything outside it.
    bool cellOffset(std::uint64_t row, std::uint64_t col, std::uint64_t& offset) const {
        if (row >= maxRows || col >= maxCols)
            return false;
        offset = valuesOffset() + (row * maxCols + col) * rawSize;
        return true;
    }
    // Cell counted row-major from the first value; false past the end of the value array.
    bool flatOffset(std::uint64_t flat, std::uint64_t& offset) const {
        if (flat >= cellCount())
            return false;
        offset = valuesOffset() + flat * rawSize;
        return true;
    }
};

} // namespace detail
} // namespace Tupsim
