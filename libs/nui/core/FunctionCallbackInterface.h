#pragma once

#include "nui/core/CallbackInterface.h"

#include <functional>
#include <utility>

namespace core {

/// A call target that holds a std::function. Two of them cannot be compared: each equals only itself.
template <class R, class... A>
class FunctionCallbackInterface_Base : public CallbackInterface<R, A...> {
public:
    using Function = std::function<R(A...)>;

    explicit FunctionCallbackInterface_Base(Function function) : mFunction(std::move(function)) {}

    bool equals(const CallbackInterface_Base<R, A...> &other) const override { return this == &other; }

protected:
    Function mFunction;
};

template <class R, class... A>
class FunctionCallbackInterface : public FunctionCallbackInterface_Base<R, A...> {
public:
    using FunctionCallbackInterface_Base<R, A...>::FunctionCallbackInterface_Base;

    FunctionCallbackInterface *clone() const override { return new FunctionCallbackInterface(this->mFunction); }

    R call(A... arguments) override { return this->mFunction(std::forward<A>(arguments)...); }
};

} // namespace core
