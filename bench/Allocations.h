#pragma once

#include <cstddef>

namespace bench {

/// What this program has taken from the heap through `operator new`.
struct HeapUse {
    std::size_t allocations = 0; ///< calls so far
    std::size_t bytes = 0;       ///< in use now
};

HeapUse getHeapUse();

} // namespace bench
