#pragma once

#include "nui/ui/Component.h"

namespace nurel::ui::components {

/// A picture: its look comes from its view and its mesh.
class Image : public Component {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "image"
    static const char *const ELEMENT;

    explicit Image(const char *name = "");

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;

protected:
    Image(const char *name, const char *element);

    ComponentView *visit(Skin *skin) override;

    /// The picture's own size in pixels, when the mesh is a bordered rectangle; else the argument.
    math::Vector2 getAutoSize(const math::Vector2 &current) override;
};

} // namespace nurel::ui::components
