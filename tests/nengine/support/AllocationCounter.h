#pragma once

#include <cstddef>

namespace test {

/// How often this program has asked for memory with `new`, in all threads.
std::size_t getAllocationCount();

} // namespace test
