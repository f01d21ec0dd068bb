// Speed of the table text forms beside bare number formatting and parsing: printing a table
// beside a to_chars loop over its values, reading it back beside a from_chars loop over its text.
#include "RatioReporter.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Tupsim;

namespace {

// What both sides of a concern work on: a table's text and the values printed in it.
struct Sample {
    std::string name;
    int precision;
    std::vector<double> values;
    std::string text;
    std::function<std::string()> print;
    std::function<bool(std::istream&)> read;
};

template <class Block> void fillRandom(Block& block, unsigned rows, unsigned cols) {
    std::mt19937 random(3);
    using Raw = std::remove_reference_t<decltype(block.getBlock()->values[0][0])>;
    for (unsigned r = 0; r < rows; ++r)
        for (unsigned c = 0; c < cols; ++c) {
            const auto bits = static_cast<std::int32_t>(random()) >> (random() % 24);
            block.setCalValue(
                static_cast<Raw>(std::is_floating_point<Raw>::value ? bits * 0.37 : bits), r, c);
        }
    block.setRowCount(rows);
    block.setColCount(cols);
}

template <class Block>
Sample sample(const std::string& name, int precision, std::shared_ptr<Block> block, unsigned rows,
              unsigned cols) {
    fillRandom(*block, rows, cols);
    Sample s;
    s.name = name;
    s.precision = precision;
    for (unsigned r = 0; r < rows; ++r)
        for (unsigned c = 0; c < cols; ++c)
            s.values.push_back(static_cast<double>(block->getCalValue(r, c)));
    s.print = [block] {
        std::ostringstream out;
        block->printToStream(out);
        return out.str();
    };
    s.read = [block](std::istream& in) { return block->readSection(in, *block).ok(); };
    s.text = s.print();
    return s;
}

std::vector<Sample> samples() {
    using IntTable = HwDatablockBaseTemplate<int, int, 5, 350>;
    using FreqVector = HwDatablockBaseTemplate<unsigned int, double, 750, 1>;
    using DoubleVector = HwDatablockBaseTemplate<double, double, 200, 1>;
    using WexW = HwDatablockBaseTemplateWexW<float, double, 50, 7>;
    using Index = HwDatablockBaseTemplateIndex<int, int, 40, 200>;
    using Misc = HwDatablockTemplate<MiscData<int, 50, 200>, int, double, 50, 200>;
    char wexwName[] = "IQ_IMBALANCE";
    return {
        sample("int", 3, std::make_shared<IntTable>("RFBO_TABLE", 15000, 0, 1.0, false), 5, 350),
        sample("freq", 3, std::make_shared<FreqVector>("FREQ_VECTOR", 15001, 0, 100.0, false), 750,
               1),
        sample("double", 3, std::make_shared<DoubleVector>("DOUBLE_VECTOR", 15002, 0, 1.0, false),
               200, 1),
        sample("wexw", 10, std::make_shared<WexW>(wexwName, 15606, 0, 1.0, false), 50, 7),
        sample("index", 3, std::make_shared<Index>("INDEX_TABLE", 15003, 0, 1.0, false), 40, 200),
        sample("misc", 5, std::make_shared<Misc>("MISC_TABLE", 12304, 0, 0.25, false), 50, 200),
    };
}

void setBytes(benchmark::State& state, const Sample& s) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(s.text.size()));
    state.SetLabel(s.name + ", " + std::to_string(s.values.size()) + " values");
}

// The reference of printing: each value through to_chars in the same notation, appended.
void exportToChars(benchmark::State& state, const Sample* s) {
    std::string out;
    for (auto _ : state) {
        out.clear();
        char text[400];
        for (double value : s->values) {
            const auto done = std::to_chars(text, text + sizeof text, value,
                                            std::chars_format::fixed, s->precision);
            out.append(text, done.ptr);
            out += '\t';
        }
        benchmark::DoNotOptimize(out.data());
    }
    setBytes(state, *s);
}

void exportPrint(benchmark::State& state, const Sample* s) {
    for (auto _ : state) {
        std::string text = s->print();
        benchmark::DoNotOptimize(text.data());
    }
    setBytes(state, *s);
}

// The reference of reading: every white-space separated word of the text through from_chars.
void importFromChars(benchmark::State& state, const Sample* s) {
    for (auto _ : state) {
        const char* at = s->text.data();
        const char* const end = at + s->text.size();
        double sum = 0;
        while (at != end) {
            while (at != end && (*at == ' ' || *at == '\t' || *at == '\n'))
                ++at;
            const char* word = at;
            while (at != end && !(*at == ' ' || *at == '\t' || *at == '\n'))
                ++at;
            double value = 0;
            std::from_chars(word, at, value);
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    setBytes(state, *s);
}

void importRead(benchmark::State& state, const Sample* s) {
    std::istringstream in(s->text);
    for (auto _ : state)
        if (!s->read(in))
            state.SkipWithError("the printed text did not read back");
    setBytes(state, *s);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    static const std::vector<Sample> all = samples();
    for (const Sample& s : all) {
        const std::string size = std::to_string(s.text.size());
        // The reference of each concern comes first at each size.
        benchmark::RegisterBenchmark(("export/to_chars/" + size).c_str(), exportToChars, &s);
        benchmark::RegisterBenchmark(("export/print/" + size).c_str(), exportPrint, &s);
        benchmark::RegisterBenchmark(("import/from_chars/" + size).c_str(), importFromChars, &s);
        benchmark::RegisterBenchmark(("import/read/" + size).c_str(), importRead, &s);
    }
    eprombench::RatioReporter reporter({{"export", "to_chars"}, {"import", "from_chars"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
