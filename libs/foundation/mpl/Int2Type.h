#pragma once

namespace mpl {

/// A type for each number: tells apart overloads, and bases of one class, that would otherwise be the same.
template <int VALUE>
struct Int2Type {
    static constexpr int value = VALUE;
};

} // namespace mpl
