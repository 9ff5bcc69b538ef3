#pragma once

namespace core {

/// What a subscription calls. The arguments are passed on as the publisher gave them.
template <class R, class... A>
class CallbackInterface_Base {
public:
    virtual ~CallbackInterface_Base() = default;

    /// A copy that calls the same target; the caller deletes it.
    virtual CallbackInterface_Base *clone() const = 0;

    /// Whether both call the same thing. Targets that cannot be compared equal only themselves.
    virtual bool equals(const CallbackInterface_Base &other) const = 0;

    virtual R call(A... arguments) = 0;
};

/// The call target that the publisher's signature names; classes derive from it.
template <class R, class... A>
class CallbackInterface : public CallbackInterface_Base<R, A...> {
public:
    CallbackInterface *clone() const override = 0;
};

} // namespace core
