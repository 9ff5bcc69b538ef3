#pragma once

#include "nengine/scene/Property.h"
#include "nmain/math/Vector3.h"
#include "nmain/math/Vector4.h"

namespace nurel::scene::properties {

/// Property 1: colour. What is drawn is color * second color * vertex colour * texture; both colours are white at
/// first. Colours are not premultiplied; values outside 0 to 1 are cut when they are drawn.
class MaterialProperty : public Property {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// Bits of the flags. With neither, a mesh marks the stencil buffer and shows nothing.
    enum Flags : unsigned int { WRITE_COLOR = 1, WRITE_ALPHA = 2 };

    explicit MaterialProperty(const char *name = "");

    /// Red, green, blue, alpha.
    const math::Vector4 &getColor() const { return mColor; }
    void setColor(const math::Vector4 &color);

    /// Keeps the alpha.
    void setColor(const math::Vector3 &color);

    float getAlpha() const { return mColor.w; }
    void setAlpha(float alpha);

    const math::Vector3 &getSecondColor() const { return mSecondColor; }
    void setSecondColor(const math::Vector3 &color);

    unsigned int getFlags() const { return mFlags; }
    void setFlags(unsigned int flags);

    using Property::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

private:
    math::Vector4 mColor;
    math::Vector3 mSecondColor;
    unsigned int mFlags = WRITE_COLOR | WRITE_ALPHA;
};

} // namespace nurel::scene::properties
