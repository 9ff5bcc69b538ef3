#pragma once

#include <utility>

namespace mpl {

/// A member function with the object that it is called on, which is only pointed at. Equal to another when both the
/// object and the function are the same.
template <class Object, class Method>
class MEncapsulate {
public:
    constexpr MEncapsulate(Object *object, Method method) noexcept : mObject(object), mMethod(method) {}

    template <class... Arguments>
    decltype(auto) operator()(Arguments &&...arguments) const {
        return (mObject->*mMethod)(std::forward<Arguments>(arguments)...);
    }

    constexpr Object *getObject() const noexcept { return mObject; }

    constexpr bool operator==(const MEncapsulate &other) const noexcept = default;

private:
    Object *mObject;
    Method mMethod;
};

} // namespace mpl
