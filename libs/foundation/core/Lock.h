#pragma once

#include "foundation/core/CriticalSection.h"

namespace core {

/// Holds a critical section for the length of a scope.
class [[nodiscard]] Lock {
public:
    explicit Lock(CriticalSection &section) noexcept : mSection(section) { mSection.enter(); }
    ~Lock() { mSection.leave(); }
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

private:
    CriticalSection &mSection;
};

} // namespace core
