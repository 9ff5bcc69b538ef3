#pragma once

#include <concepts>
#include <tuple>
#include <utility>

namespace mpl {

/// A function with values for its last parameters: linker(a, b) calls function(a, b, bound...). The values are copied
/// when it is made and passed as lvalues of the linker's own copies. Equal to another when the function and all bound
/// values are; a bound value has to be comparable only where linkers are compared.
template <class Function, class... Bound>
class Linker {
public:
    constexpr explicit Linker(Function function, Bound... bound)
        : mFunction(std::move(function)), mBound(std::move(bound)...) {}

    template <class... Arguments>
    decltype(auto) operator()(Arguments &&...arguments) {
        return std::apply(
            [&](Bound &...bound) -> decltype(auto) {
                return mFunction(std::forward<Arguments>(arguments)..., bound...);
            },
            mBound);
    }

    // clang-format off
    constexpr bool operator==(const Linker &other) const
        requires std::equality_comparable<Function> && (std::equality_comparable<Bound> && ...)
    {
        return mFunction == other.mFunction && mBound == other.mBound;
    }
    // clang-format on

private:
    Function mFunction;
    std::tuple<Bound...> mBound;
};

} // namespace mpl
