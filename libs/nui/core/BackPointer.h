#pragma once

namespace core {

/// A pointer that belongs to an object's place and not to its value, such as the one to a parent: a copy of the object
/// starts with null, and an object that is assigned to keeps its own.
template <class T>
class BackPointer {
public:
    constexpr BackPointer() = default;
    constexpr BackPointer(T *object) : mObject(object) {}
    constexpr BackPointer(const BackPointer &) {}
    constexpr BackPointer &operator=(const BackPointer &) { return *this; }

    constexpr BackPointer &operator=(T *object) {
        mObject = object;
        return *this;
    }

    constexpr T *get() const { return mObject; }
    constexpr T *operator->() const { return mObject; }
    constexpr operator T *() const { return mObject; }

private:
    T *mObject = nullptr;
};

} // namespace core
