// The module's exception classes, one per result code of the library, and raising them.
#pragma once

#include <Outcome.h>
#include <pybind11/pybind11.h>

namespace epromPython {

// Adds epromdatablock.Error and one subclass of it per result code to `m`.
void addErrors(pybind11::module_& m);
// Raises the exception class of `outcome.code` with the outcome's message.
[[noreturn]] void raise(const Tupsim::Outcome& outcome);
// raise() when the outcome is a failure.
inline void check(const Tupsim::Outcome& outcome) {
    if (!outcome.ok())
        raise(outcome);
}

} // namespace epromPython
