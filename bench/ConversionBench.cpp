// Cost of the byte-order conversion of self-describing blocks and of checking a converted block.
#include "RatioReporter.h"
#include "core/Checks.h"

#include <ETypeId.h>
#include <HwDatablock.h>

#include <benchmark/benchmark.h>
#include <cstring>
#include <random>

using namespace Tupsim;

namespace {

// Block 20001 holding one INT32 column that fills about `n` bytes, sealed in the reference form.
QByteArray selfDescribingImage(std::size_t n) {
    const std::size_t rows = (n - 24) / 4;
    QByteArray image(static_cast<int>(24 + 4 * rows), '\0');
    std::mt19937 random(1);
    for (int i = 24; i < image.size(); ++i)
        image[i] = static_cast<char>(random());
    auto* p = reinterpret_cast<unsigned char*>(image.data());
    p[0] = 0x21, p[1] = 0x4E;                                      // id 20001
    p[2] = image.size() & 0xFF, p[3] = (image.size() >> 8) & 0xFF; // size
    p[14] = static_cast<unsigned char>(rows >> 8), p[15] = rows & 0xFF;
    p[17] = 1;     // one column
    p[20] = INT32; // its type
    const quint32 crc = checks::crc32Skipping4to11(p, image.size());
    std::memcpy(p + 8, &crc, 4);
    const quint16 sum = checks::blockChecksum(p, image.size());
    std::memcpy(p + 4, &sum, 2);
    return image;
}

void load(HwDatablock& block, const QByteArray& image) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
}

void bytesDone(benchmark::State& state, std::size_t n) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(n));
}

void swapMemcpy(benchmark::State& state, std::size_t n) {
    const QByteArray image = selfDescribingImage(n);
    QByteArray target(image.size(), '\0');
    for (auto _ : state) {
        std::memcpy(target.data(), image.constData(), image.size());
        benchmark::ClobberMemory();
    }
    bytesDone(state, image.size());
}

// One conversion there and back per iteration, so the block ends as it started.
void swapGeneric(benchmark::State& state, std::size_t n) {
    const QByteArray image = selfDescribingImage(n);
    HwDatablock block(false);
    load(block, image);
    for (auto _ : state) {
        block.swapBlock(HwDataFormatConverted, 0, nullptr);
        block.swapBlock(HwDataFormatReference, 0, nullptr);
    }
    bytesDone(state, 2 * image.size());
}

void verifyInForm(benchmark::State& state, std::size_t n, HwEDataFormatTyp form) {
    const QByteArray image = selfDescribingImage(n);
    HwDatablock block(false);
    load(block, image);
    block.swapDataTo(form, 20001, &block);
    if (!block.verifyChecksum())
        state.SkipWithError("the sealed image does not verify");
    for (auto _ : state)
        benchmark::DoNotOptimize(block.verifyChecksum());
    bytesDone(state, image.size());
}

void verifyReference(benchmark::State& state, std::size_t n) {
    verifyInForm(state, n, HwDataFormatReference);
}

void verifyConverted(benchmark::State& state, std::size_t n) {
    verifyInForm(state, n, HwDataFormatConverted);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (std::size_t n : {1024u, 32768u}) {
        const std::string size = std::to_string(n);
        benchmark::RegisterBenchmark(("swap/memcpy/" + size).c_str(), swapMemcpy, n);
        benchmark::RegisterBenchmark(("swap/generic/" + size).c_str(), swapGeneric, n);
        benchmark::RegisterBenchmark(("verify/reference/" + size).c_str(), verifyReference, n);
        benchmark::RegisterBenchmark(("verify/converted/" + size).c_str(), verifyConverted, n);
    }
    eprombench::RatioReporter reporter({{"swap", "memcpy"}, {"verify", "reference"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
