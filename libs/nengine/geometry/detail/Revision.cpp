#include "nengine/geometry/detail/Revision.h"

#include <atomic>

namespace nurel::geometry {

std::uint64_t nextRevision() {
    static constinit std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

namespace {
constinit std::atomic<std::uint64_t> lookChanges{0};
}

std::uint64_t getLookChangeCount() {
    return lookChanges.load(std::memory_order_relaxed);
}

void noteLookChange() {
    lookChanges.fetch_add(1, std::memory_order_relaxed);
}

} // namespace nurel::geometry
