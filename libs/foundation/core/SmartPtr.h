#pragma once

#include "foundation/core/IRefCount.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace core {

/// Holds a reference on an object that derives from IRefCount and disposes of it with the last one. T may be incomplete
/// where a SmartPtr<T> is only declared as a member.
///
/// One SmartPtr is used by one thread at a time; different ones of the same object may live on different threads.
template <class T>
class SmartPtr {
public:
    constexpr SmartPtr() noexcept = default;
    constexpr SmartPtr(std::nullptr_t) noexcept {}
    SmartPtr(T *object) : mObject(object) { acquire(); }
    SmartPtr(const SmartPtr &other) : mObject(other.mObject) { acquire(); }
    SmartPtr(SmartPtr &&other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}

    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    SmartPtr(const SmartPtr<U> &other) : mObject(other.get()) {
        acquire();
    }

    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    SmartPtr(SmartPtr<U> &&other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}

    ~SmartPtr() { drop(mObject); }

    /// The new reference is taken before the old one is given back, and the pointer already shows the new object when
    /// the old one's destructor runs.
    SmartPtr &operator=(T *object) {
        SmartPtr(object).swap(*this);
        return *this;
    }

    SmartPtr &operator=(std::nullptr_t) {
        SmartPtr().swap(*this);
        return *this;
    }

    SmartPtr &operator=(const SmartPtr &other) {
        SmartPtr(other).swap(*this);
        return *this;
    }

    SmartPtr &operator=(SmartPtr &&other) {
        SmartPtr(std::move(other)).swap(*this);
        return *this;
    }

    T *get() const noexcept { return mObject; }
    T *operator->() const noexcept { return mObject; }
    T &operator*() const noexcept { return *mObject; }
    explicit operator bool() const noexcept { return mObject != nullptr; }

    /// Gives the object up without disposing of it, even if that was its last reference: it is the caller's then.
    T *release() {
        if (mObject)
            mObject->decRef();
        return std::exchange(mObject, nullptr);
    }

    void swap(SmartPtr &other) noexcept { std::swap(mObject, other.mObject); }

private:
    template <class U>
    friend class SmartPtr;

    void acquire() const {
        if (mObject)
            mObject->addRef();
    }

    static void drop(T *object) {
        if (object && object->decRef() == 0)
            object->IRefCount::dispose();
    }

    T *mObject = nullptr;
};

template <class T, class U>
bool operator==(const SmartPtr<T> &a, const SmartPtr<U> &b) noexcept {
    return a.get() == b.get();
}

template <class T, class U>
bool operator==(const SmartPtr<T> &a, U *b) noexcept {
    return a.get() == b;
}

template <class T>
bool operator==(const SmartPtr<T> &a, std::nullptr_t) noexcept {
    return a.get() == nullptr;
}

/// By address, so that smart pointers can be keys.
template <class T>
bool operator<(const SmartPtr<T> &a, const SmartPtr<T> &b) noexcept {
    return reinterpret_cast<std::uintptr_t>(a.get()) < reinterpret_cast<std::uintptr_t>(b.get());
}

} // namespace core
