// Shared pieces of the fuzz targets: quiet host services and a small reader over the input bytes.
#pragma once

#include <IErrorManager.h>

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

// Counts what the library signals instead of writing it to standard error.
class QuietErrorManager : public Tupsim::IErrorManager {
public:
    void registerErrors(const Tupsim::SErrorDefinition*, int) override {}
    void signal(int, const QString&) override { ++signalled; }
    long signalled = 0;
};

// Installs the quiet services once per process.
inline void quietHost() {
    static QuietErrorManager manager;
    static bool installed = false;
    if (!installed) {
        Tupsim::setErrorManager(&manager);
        installed = true;
    }
}

// Takes leading bytes of the input as selectors, the rest as the payload.
class Input {
public:
    Input(const uint8_t* data, size_t size) : data(data), size(size) {}
    unsigned byte() {
        if (at >= size)
            return 0;
        return data[at++];
    }
    unsigned word() { return byte() | byte() << 8; }
    // `count` bytes (fewer at the end of the input).
    QByteArray take(size_t count) {
        const size_t n = count < size - at ? count : size - at;
        QByteArray bytes(reinterpret_cast<const char*>(data + at), static_cast<int>(n));
        at += n;
        return bytes;
    }
    QByteArray rest() { return take(size - at); }

private:
    const uint8_t* data;
    size_t size;
    size_t at = 0;
};

// A property the target checks does not hold: a finding, reported as a crash.
#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "check failed: %s (%s:%d)\n", #condition, __FILE__, __LINE__);    \
            std::abort();                                                                          \
        }                                                                                          \
    } while (0)

} // namespace fuzz
