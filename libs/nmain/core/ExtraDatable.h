#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"

namespace nurel::core {

/// Something that a program can hang an object of its own on, without deriving from it.
class ExtraDatable {
public:
    /// Held by a counted reference; null takes it off.
    void setExtraData(::core::IRefCount *data) { mExtraData = data; }
    ::core::IRefCount *getExtraData() const { return mExtraData.get(); }

private:
    ::core::SmartPtr<::core::IRefCount> mExtraData;
};

} // namespace nurel::core

namespace core {
using nurel::core::ExtraDatable;
}
