// Speed of opening a whole image (chain walk and every block's checks) and of listing and
// exporting it, beside memcpy over the same bytes.
#include "RatioReporter.h"

#include <EepromImage.h>
#include <ImageExport.h>

#include <QFile>
#include <benchmark/benchmark.h>
#include <cstring>

using namespace Tupsim;

namespace {

// The demonstration image's chain repeated up to `size` bytes, closed by the end block and
// erased behind it: about 19 000 blocks in 16 MiB.
QByteArray repeatedSample(int size) {
    QFile file(QStringLiteral(EPROM_SOURCE_DIR "/examples/sample.eeprom"));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const EepromImage sample = EepromImage::fromBytes(file.readAll());
    const QByteArray chain = sample.bytes().left(sample.endOffset());
    QByteArray image;
    image.reserve(size);
    while (image.size() + chain.size() + 4 <= size)
        image += chain;
    image += QByteArray::fromHex("ffff0000");
    image += QByteArray(size - image.size(), '\xFF');
    return image;
}

void memcpyImage(benchmark::State& state, const QByteArray* image) {
    std::vector<char> copy(static_cast<std::size_t>(image->size()));
    for (auto _ : state) {
        std::memcpy(copy.data(), image->constData(), copy.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * image->size());
}

void openImage(benchmark::State& state, const QByteArray* image) {
    int blocks = 0;
    for (auto _ : state) {
        const EepromImage opened = EepromImage::fromBytes(*image);
        blocks = opened.blockCount();
        benchmark::DoNotOptimize(opened.ok());
    }
    state.SetBytesProcessed(state.iterations() * image->size());
    state.counters["blocks"] = blocks;
}

void nameBlocks(benchmark::State& state, const QByteArray* image) {
    const EepromImage opened = EepromImage::fromBytes(*image);
    for (auto _ : state)
        for (int i = 0; i < opened.blockCount(); ++i)
            benchmark::DoNotOptimize(opened.kindOf(i));
    state.SetBytesProcessed(state.iterations() * image->size());
}

void exportAll(benchmark::State& state, const QByteArray* image) {
    const EepromImage opened = EepromImage::fromBytes(*image);
    for (auto _ : state)
        benchmark::DoNotOptimize(exportImage(opened).size());
    state.SetBytesProcessed(state.iterations() * image->size());
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    static const QByteArray sample = repeatedSample(32 * 1024);
    static const QByteArray large = repeatedSample(16 * 1024 * 1024);
    for (const auto& [size, image] : {std::make_pair(std::string("32K"), &sample),
                                      std::make_pair(std::string("16M"), &large)}) {
        benchmark::RegisterBenchmark(("image/memcpy/" + size).c_str(), memcpyImage, image);
        benchmark::RegisterBenchmark(("image/open/" + size).c_str(), openImage, image);
        benchmark::RegisterBenchmark(("image/names/" + size).c_str(), nameBlocks, image);
    }
    benchmark::RegisterBenchmark("export/memcpy/32K", memcpyImage, &sample);
    benchmark::RegisterBenchmark("export/text/32K", exportAll, &sample);
    eprombench::RatioReporter reporter({{"image", "memcpy"}, {"export", "memcpy"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
