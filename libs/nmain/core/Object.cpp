#include "nmain/core/Object.h"

#include "nmain/core/CloningOptions.h"

#include "foundation/core/Exception.h"

namespace nurel::core {

constinit const ::core::Type Object::TYPE("Object");

Object *Object::clone() const {
    CloningOptions options;
    return clone(options);
}

Object *Object::clone(CloningOptions &) const {
    throw ::core::IllegalStateException("%s cannot be cloned", getType().getName());
}

void Object::_clone(Object *target, CloningOptions &options) const {
    options.setCloned(this, target);
}

std::string Object::toString() const {
    return getType().getName();
}

std::uint64_t Object::getSUID() const {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char *at = getType().getName(); *at; ++at) {
        hash ^= static_cast<unsigned char>(*at);
        hash *= 0x100000001b3u;
    }
    return hash;
}

} // namespace nurel::core
