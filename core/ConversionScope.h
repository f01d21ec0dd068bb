// Marks a block whose image a byte-order rule is reordering, so its checksum refreshes stay local.
#pragma once

namespace Tupsim {

class HwDatablock;

namespace conversion {

// While a Scope stands, the block's image is mid-conversion: its checksum is computed over the
// image as it stands instead of over a converted copy, so the setters a rule calls never start
// another conversion of the same kind. Scopes nest; each thread has its own.
class Scope {
public:
    explicit Scope(const HwDatablock& block);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

private:
    friend bool inProgress(const HwDatablock& block);
    const HwDatablock* block;
    const Scope* outer;
};

// True while a Scope for this very object stands on the calling thread.
bool inProgress(const HwDatablock& block);

} // namespace conversion
} // namespace Tupsim
