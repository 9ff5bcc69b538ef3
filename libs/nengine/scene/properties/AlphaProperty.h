#pragma once

#include "nengine/scene/Property.h"

namespace nurel::scene::properties {

/// Property 0: whether a mesh is laid over what is there by its alpha, or replaces it.
class AlphaProperty : public Property {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit AlphaProperty(const char *name = "");

    /// False at first. Without blending a mesh is opaque: the alpha of its material does not count.
    bool isBlending() const { return mBlending; }
    void setBlending(bool blending);

    using Property::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

private:
    bool mBlending = false;
};

} // namespace nurel::scene::properties
