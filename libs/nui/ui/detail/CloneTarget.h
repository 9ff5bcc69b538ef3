#pragma once

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "nmain/core/Object.h"

namespace nurel::ui::detail {

/// Raises `core::IllegalArgumentException` "%s cannot be cloned into %s" unless the target is of the type.
inline void requireCloneTarget(const core::Object &source, const core::Object *target, const core::Type &type) {
    if (!target || !target->instanceOf(type))
        throw core::IllegalArgumentException("%s cannot be cloned into %s", source.getType().getName(),
                                             target ? target->getType().getName() : "nothing");
}

} // namespace nurel::ui::detail
