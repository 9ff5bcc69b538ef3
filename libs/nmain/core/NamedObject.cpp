#include "nmain/core/NamedObject.h"

namespace nurel::core {

constinit const ::core::Type NamedObject::TYPE("NamedObject", &Object::TYPE);

void NamedObject::setName(const char *name) {
    mName.assign(name ? name : "");
}

void NamedObject::_clone(Object *target, CloningOptions &options) const {
    Object::_clone(target, options);
    if (target && target != this && target->instanceOf(TYPE))
        static_cast<NamedObject *>(target)->mName = mName;
}

std::string NamedObject::toString() const {
    return mName + "(" + getType().getName() + ")";
}

void NamedObject::serialize(stream::OutputStream &out) const {
    Object::serialize(out);
    writeText(out, mName.c_str());
}

void NamedObject::deserialize(stream::InputStream &in) {
    Object::deserialize(in);
    readText(in, mName);
}

} // namespace nurel::core
