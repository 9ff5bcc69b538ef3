#pragma once

#include "Allocations.h"

#include "nengine/renderer/FrameStatistics.h"

#include <benchmark/benchmark.h>

#include <cstdint>

namespace bench {

/// Notes what the frames of one benchmark took and drew, and writes it into the counters at its end.
class Meter {
public:
    explicit Meter(benchmark::State &state);
    ~Meter();
    Meter(const Meter &) = delete;
    Meter &operator=(const Meter &) = delete;

private:
    benchmark::State &mState;
    HeapUse mHeap;
    std::uint64_t mShaped;
    nurel::renderer::FrameStatistics mBefore;
};

/// The first argument of the benchmark.
inline unsigned int countOf(const benchmark::State &state) {
    return static_cast<unsigned int>(state.range(0));
}

inline double perIteration(std::uint64_t total, const benchmark::State &state) {
    return static_cast<double>(total) / static_cast<double>(state.iterations());
}

} // namespace bench
