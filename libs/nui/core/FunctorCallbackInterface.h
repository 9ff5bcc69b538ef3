#pragma once

#include "nui/core/CallbackInterface.h"

#include <utility>

namespace core {

/// A call target that holds a comparable functor: a member function with its object (`mpl::MEncapsulate`), or a
/// function with bound arguments (`mpl::Linker`). Equal to another of the same functor type whose functor is equal.
template <class Functor, class R, class... A>
class FunctorCallbackInterface_Base : public CallbackInterface<R, A...> {
public:
    explicit FunctorCallbackInterface_Base(Functor functor) : mFunctor(std::move(functor)) {}

    bool equals(const CallbackInterface_Base<R, A...> &other) const override {
        const auto *same = dynamic_cast<const FunctorCallbackInterface_Base *>(&other);
        return same && mFunctor == same->mFunctor;
    }

protected:
    Functor mFunctor;
};

template <class Functor, class R, class... A>
class FunctorCallbackInterface : public FunctorCallbackInterface_Base<Functor, R, A...> {
public:
    using FunctorCallbackInterface_Base<Functor, R, A...>::FunctorCallbackInterface_Base;

    FunctorCallbackInterface *clone() const override { return new FunctorCallbackInterface(this->mFunctor); }

    R call(A... arguments) override { return this->mFunctor(std::forward<A>(arguments)...); }
};

} // namespace core
