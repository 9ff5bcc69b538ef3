#pragma once

#include "nui/core/CallbackInterface.h"

#include <memory>
#include <utility>

namespace core {

/// One subscription: owns what is called.
template <class R, class... A>
class Callback_Base {
public:
    using Interface = CallbackInterface<R, A...>;

    /// Takes the target over. A null target makes an empty callback, which no publisher accepts.
    explicit Callback_Base(Interface *target) : mTarget(target) {}

    Callback_Base(const Callback_Base &) = delete;
    Callback_Base &operator=(const Callback_Base &) = delete;

    bool isEmpty() const { return mTarget == nullptr; }

    /// Null when the callback is empty.
    const Interface *getInterface() const { return mTarget.get(); }

protected:
    ~Callback_Base() = default;

    std::unique_ptr<Interface> mTarget;
};

template <class R, class... A>
class Callback : public Callback_Base<R, A...> {
public:
    using Callback_Base<R, A...>::Callback_Base;

    /// A callback of its own with a copy of the target; the caller deletes it.
    Callback *clone() const { return new Callback(this->mTarget ? this->mTarget->clone() : nullptr); }

    /// Whether both call the same thing.
    bool equals(const Callback &other) const {
        return this->mTarget && other.mTarget && this->mTarget->equals(*other.mTarget);
    }

    R call(A... arguments) { return this->mTarget->call(std::forward<A>(arguments)...); }
};

} // namespace core
