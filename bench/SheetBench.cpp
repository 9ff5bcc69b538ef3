#include "Meter.h"
#include "Sheets.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace bench {

using benchmark::State;
using nurel::ui::css::CSS;

namespace {

/// A sheet of that many rules with six declarations, each of which uses one of that many macros.
std::string makeMacroSheetText(unsigned int rules, unsigned int macros) {
    std::string text = "@define {\n";
    for (unsigned int i = 0; i < macros; ++i)
        text.append("    $size").append(std::to_string(i)).append(": ").append(std::to_string(i)).append("px;\n");
    text += "}\n";
    for (unsigned int i = 0; i < rules; ++i) {
        const std::string value = ": $size" + std::to_string(i * 7 % macros) + ";\n";
        text.append(".style").append(std::to_string(i)).append(" {\n");
        for (const char *name : {"width", "height", "left", "top", "margin", "padding"})
            text.append("    ").append(name).append(value);
        text += "}\n";
    }
    return text;
}

void parseText(State &state, const std::string &text) {
    std::uint64_t allocations = 0;
    for (auto _ : state) {
        nurel::stream::MemoryInputStream stream("bench.css", text);
        const std::uint64_t before = getHeapUse().allocations;
        std::unique_ptr<CSS> sheet(nurel::ui::css::CSSParser().parse(&stream));
        benchmark::DoNotOptimize(sheet.get());
        state.PauseTiming();
        allocations += getHeapUse().allocations - before;
        sheet.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
    state.counters["allocations"] = perIteration(allocations, state);
}

void parseSheet(State &state) {
    parseText(state, makeSheetText(countOf(state)));
}

void parseSheetWithMacros(State &state) {
    parseText(state, makeMacroSheetText(countOf(state), static_cast<unsigned int>(state.range(1))));
}

} // namespace

BENCHMARK(parseSheet)->Arg(100)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(parseSheet)->Arg(1000)->Iterations(50)->Unit(benchmark::kMillisecond);
BENCHMARK(parseSheet)->Arg(10000)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(parseSheet)->Arg(100000)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(parseSheetWithMacros)->Args({1000, 10})->Args({1000, 1000})->Iterations(50)->Unit(benchmark::kMillisecond);

} // namespace bench
