#pragma once

#include "nengine/scene/Property.h"

namespace nurel::scene::properties {

/// Property 3: what a mesh would do with a depth buffer. It is state that applications can read; drawing follows the
/// order of nodes, whatever the depth.
class DepthProperty : public Property {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit DepthProperty(const char *name = "", bool test = false, bool write = false);

    bool isTesting() const { return mTest; }
    void setTesting(bool test);
    bool isWriting() const { return mWrite; }
    void setWriting(bool write);

    using Property::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

private:
    bool mTest;
    bool mWrite;
};

} // namespace nurel::scene::properties
