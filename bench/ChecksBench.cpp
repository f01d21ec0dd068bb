// Speed of the checksum kernels beside their references: CRC-32 beside zlib, the word sum
// beside memcpy, and the block operations that call them.
#include "RatioReporter.h"
#include "core/Checks.h"

#include <HwDatablock.h>

#include <benchmark/benchmark.h>
#include <cstring>
#include <random>
#include <vector>
#include <zlib.h>

using namespace Tupsim;

namespace {

std::vector<unsigned char> randomImage(std::size_t n) {
    std::mt19937 random(1);
    std::vector<unsigned char> out(n);
    for (auto& b : out)
        b = static_cast<unsigned char>(random());
    return out;
}

template <typename Body> void measure(benchmark::State& state, std::size_t n, Body body) {
    for (auto _ : state)
        body();
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(n));
}

// The block CRC as zlib gives it: bytes 0-3 and 12 to the end, by two calls.
void crcZlib(benchmark::State& state, std::size_t n) {
    const std::vector<unsigned char> image = randomImage(n);
    measure(state, n, [&] {
        uLong crc = crc32(0L, image.data(), 4);
        benchmark::DoNotOptimize(crc = crc32(crc, image.data() + 12, static_cast<uInt>(n - 12)));
    });
}

void crcKernel(benchmark::State& state, std::size_t n) {
    const std::vector<unsigned char> image = randomImage(n);
    state.SetLabel(checks::crc32Path());
    measure(state, n,
            [&] { benchmark::DoNotOptimize(checks::crc32Skipping4to11(image.data(), n)); });
}

void crcBytewise(benchmark::State& state, std::size_t n) {
    const std::vector<unsigned char> image = randomImage(n);
    measure(state, n, [&] {
        quint32 crc = checks::crc32Bytewise(0, image.data(), 4);
        benchmark::DoNotOptimize(crc = checks::crc32Bytewise(crc, image.data() + 12, n - 12));
    });
}

// The block's own entry point, on a buffer in the reference form.
void crcBlock(benchmark::State& state, std::size_t n) {
    std::vector<unsigned char> image = randomImage(n);
    HwDatablock block(false);
    measure(state, n, [&] {
        benchmark::DoNotOptimize(
            block.computeChecksum32(image.data(), static_cast<unsigned int>(n)));
    });
}

void sumMemcpy(benchmark::State& state, std::size_t n) {
    const std::vector<unsigned char> image = randomImage(n);
    std::vector<unsigned char> target(n);
    measure(state, n, [&] {
        std::memcpy(target.data(), image.data(), n);
        benchmark::ClobberMemory();
    });
}

void sumKernel(benchmark::State& state, std::size_t n) {
    const std::vector<unsigned char> image = randomImage(n);
    measure(state, n, [&] { benchmark::DoNotOptimize(checks::wordSum(image.data(), n)); });
}

void sumBlock(benchmark::State& state, std::size_t n) {
    std::vector<unsigned char> image = randomImage(n);
    HwDatablock block(false);
    measure(state, n, [&] {
        benchmark::DoNotOptimize(block.computeChecksum(
            reinterpret_cast<unsigned short*>(image.data()), static_cast<unsigned short>(n)));
    });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (std::size_t n : {1024u, 32768u}) {
        const std::string size = std::to_string(n);
        // The reference of each concern comes first at each size.
        benchmark::RegisterBenchmark(("crc32/zlib/" + size).c_str(), crcZlib, n);
        benchmark::RegisterBenchmark(("crc32/kernel/" + size).c_str(), crcKernel, n);
        benchmark::RegisterBenchmark(("crc32/block/" + size).c_str(), crcBlock, n);
        benchmark::RegisterBenchmark(("crc32/bytewise/" + size).c_str(), crcBytewise, n);
        benchmark::RegisterBenchmark(("sum16/memcpy/" + size).c_str(), sumMemcpy, n);
        benchmark::RegisterBenchmark(("sum16/kernel/" + size).c_str(), sumKernel, n);
        benchmark::RegisterBenchmark(("sum16/block/" + size).c_str(), sumBlock, n);
    }
    eprombench::RatioReporter reporter({{"crc32", "zlib"}, {"sum16", "memcpy"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
