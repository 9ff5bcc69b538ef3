#pragma once

#include <atomic>
#include <cassert>

namespace core {

/// Intrusive reference count: the base of everything that a SmartPtr holds.
///
/// The count starts at 0: a new object belongs to nobody, and an object that an operation returns with count 0 is the
/// caller's. Counting is safe from any thread. Copying or assigning an object never copies its count.
class IRefCount {
public:
    constexpr IRefCount() noexcept = default;
    constexpr IRefCount(const IRefCount &) noexcept {}
    IRefCount &operator=(const IRefCount &) noexcept { return *this; }
    virtual ~IRefCount() = default;

    void addRef() const noexcept { mReferences.fetch_add(1, std::memory_order_relaxed); }

    /// Takes one reference back and returns how many are left. Never deletes: at 0 the holder that gave the last one
    /// back disposes of the object (see dispose()).
    unsigned decRef() const noexcept {
        const unsigned before = mReferences.fetch_sub(1, std::memory_order_acq_rel);
        assert(before != 0 && "more references given back than taken");
        return before - 1;
    }

    unsigned getRefCount() const noexcept { return mReferences.load(std::memory_order_relaxed); }

    /// Deletes the object. It is pinned by one reference while its destructors run, so that a SmartPtr which the
    /// destructor makes of the object for a while does not delete it a second time.
    void dispose() const {
        addRef();
        delete this;
    }

private:
    mutable std::atomic<unsigned> mReferences{0};
};

} // namespace core
