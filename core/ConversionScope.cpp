// The per-thread chain of blocks under conversion.
#include "core/ConversionScope.h"

namespace Tupsim {
namespace conversion {

namespace {
thread_local const Scope* innermost = nullptr;
} // namespace

Scope::Scope(const HwDatablock& block) : block(&block), outer(innermost) {
    innermost = this;
}

Scope::~Scope() {
    innermost = outer;
}

bool inProgress(const HwDatablock& block) {
    for (const Scope* scope = innermost; scope != nullptr; scope = scope->outer)
        if (scope->block == &block)
            return true;
    return false;
}

} // namespace conversion
} // namespace Tupsim
