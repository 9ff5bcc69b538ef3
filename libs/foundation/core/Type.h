#pragma once

namespace core {

/// Run-time type record of one class. Each class has one, made at compile time:
///
///     constinit const core::Type Panel::TYPE("Panel", &Container::TYPE);
///
/// A record only keeps the addresses that it is given, so the order in which they are made does not matter. Types are
/// compared by address; the name is the class's own, without namespaces.
class Type {
public:
    constexpr explicit Type(const char *name, const Type *parent = nullptr) noexcept : mName(name), mParent(parent) {}
    Type(const Type &) = delete;
    Type &operator=(const Type &) = delete;

    constexpr const char *getName() const noexcept { return mName; }

    /// The record of the base class; null at the root.
    constexpr const Type *getParent() const noexcept { return mParent; }

    /// Whether this is the other type or derives from it.
    constexpr bool instanceOf(const Type &other) const noexcept {
        for (const Type *type = this; type; type = type->mParent) {
            if (type == &other)
                return true;
        }
        return false;
    }

    constexpr bool operator==(const Type &other) const noexcept { return this == &other; }

private:
    const char *mName;
    const Type *mParent;
};

} // namespace core
