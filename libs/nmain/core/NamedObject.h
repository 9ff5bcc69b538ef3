#pragma once

#include "nmain/core/Object.h"

namespace nurel::core {

/// An object with a name, which need not be unique. A null name counts as an empty one.
class NamedObject : public Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit NamedObject(const char *name = "") : mName(name ? name : "") {}

    /// Valid until the name changes.
    const char *getName() const { return mName.c_str(); }

    /// The text may be a part of the present name.
    void setName(const char *name);

    void _clone(Object *target, CloningOptions &options) const override;

    /// "name(Type)".
    std::string toString() const override;

    void serialize(stream::OutputStream &out) const override;
    void deserialize(stream::InputStream &in) override;

private:
    std::string mName;
};

} // namespace nurel::core
