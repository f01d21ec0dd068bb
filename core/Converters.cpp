// The table of converters installed by the block directory.
#include "core/Converters.h"

#include <atomic>

namespace Tupsim {
namespace conversion {

namespace {
// Constant-initialised, so empty before any dynamic initialisation runs; atomic, since a later
// install may meet a conversion on another thread.
std::atomic<decltype(Converters::byId)> byIdHook{nullptr};
std::atomic<decltype(Converters::selfDescribing)> selfDescribingHook{nullptr};
} // namespace

void install(const Converters& converters) {
    byIdHook.store(converters.byId, std::memory_order_release);
    selfDescribingHook.store(converters.selfDescribing, std::memory_order_release);
}

bool convertById(HwEDataFormatTyp format, int id, HwDatablock& block) {
    const auto hook = byIdHook.load(std::memory_order_acquire);
    return hook != nullptr && hook(format, id, block);
}

void convertSelfDescribing(unsigned char* image, std::uint64_t length) {
    if (const auto hook = selfDescribingHook.load(std::memory_order_acquire))
        hook(image, length);
}

} // namespace conversion
} // namespace Tupsim
