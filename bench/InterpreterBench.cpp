// Cost of the old-style block directory: building it, printing through it, its resident memory.
#include <HwCalibTableBlocks.h>
#include <HwDatablockIdent.h>
#include <HwDatablockOldStyleInterpreter.h>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <sstream>

using namespace Tupsim;

namespace {

void BM_ConstructInterpreter(benchmark::State& state) {
    for (auto _ : state) {
        HwDatablockOldStyleInterpreter interpreter;
        benchmark::DoNotOptimize(&interpreter);
    }
}
BENCHMARK(BM_ConstructInterpreter)->Unit(benchmark::kMicrosecond);

// Heap bytes held by one interpreter, measured around its construction.
void BM_InterpreterResidentMemory(benchmark::State& state) {
    double held = 0;
    for (auto _ : state) {
        const std::size_t before = mallinfo2().uordblks;
        auto interpreter = std::make_unique<HwDatablockOldStyleInterpreter>();
        held = static_cast<double>(mallinfo2().uordblks - before);
        benchmark::DoNotOptimize(interpreter.get());
    }
    state.counters["heap_bytes"] = held;
    state.counters["prototypes"] =
        static_cast<double>(HwDatablockOldStyleInterpreter().getDictionary().size());
}
BENCHMARK(BM_InterpreterResidentMemory)->Unit(benchmark::kMicrosecond);

// Prints one block through the directory; the argument picks its kind.
void BM_PrintThroughInterpreter(benchmark::State& state) {
    std::unique_ptr<HwDatablock> block;
    switch (state.range(0)) {
    case 0: {
        auto* ident = new HwDatablockIdent;
        ident->setSerialNumber(100234);
        ident->setName(QStringLiteral("RF-Board"));
        block.reset(ident);
        state.SetLabel("ident");
        break;
    }
    case 1: {
        auto* table = new HwDatablockOroRfboAlcData;
        table->setRowCount(4);
        table->setColCount(10);
        for (unsigned int r = 0; r < 4; ++r)
            for (unsigned int c = 0; c < 10; ++c)
                table->setCalValue(static_cast<int>(r * 100 + c), r, c);
        block.reset(table);
        state.SetLabel("table 4x10");
        break;
    }
    default: {
        auto* table = new HwDatablockTeshRfBoExtCalVecData;
        table->setRowCount(4);
        table->setColCount(292);
        block.reset(table);
        state.SetLabel("table 4x292");
        break;
    }
    }
    HwDatablockOldStyleInterpreter interpreter;
    for (auto _ : state) {
        std::ostringstream out;
        interpreter.printHwDatablockOldStyleInfo(block.get(), out);
        benchmark::DoNotOptimize(out.str().size());
    }
}
BENCHMARK(BM_PrintThroughInterpreter)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
