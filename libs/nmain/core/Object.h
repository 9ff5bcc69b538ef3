#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"
#include "foundation/core/Type.h"
#include "nmain/core/Fwd.h"
#include "nmain/core/Serializable.h"

#include <cstdint>
#include <string>

namespace nurel::core {

/// Base of everything that is counted, knows its type at run time, can be cloned and can be written.
///
/// A derived class has `static const core::Type TYPE`, a static type() and an override of getType(). One that can be
/// cloned overrides clone(CloningOptions &), which makes a new instance and calls the virtual _clone() on itself, and
/// _clone(), which calls its base first and then copies its own fields into the target.
class Object : public ::core::IRefCount, public Serializable {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// A copy made with fresh options. Its count is 0: it belongs to the caller.
    Object *clone() const;

    /// A copy made as part of a larger clone operation. Its count is 0: it belongs to the caller. The base raises
    /// IllegalStateException "<type> cannot be cloned".
    virtual Object *clone(CloningOptions &options) const;

    /// Copies this object's state into the target, which may be of any class: fields that it has not are left out. The
    /// base notes in the options that the target is the copy of this object.
    virtual void _clone(Object *target, CloningOptions &options) const;

    /// For messages; the base gives the type's name.
    virtual std::string toString() const;

    /// A number of the run-time class, the same in every process: the 64-bit FNV-1a hash of the type's name.
    std::uint64_t getSUID() const;
};

} // namespace nurel::core
