#pragma once

#include "nengine/Fwd.h"
#include "nui/ui/views/LabelView.h"

namespace nurel::ui::views {

/// A label as a flat rectangle of its size, with its text from the top left in the default font.
class DefaultLabelView : public LabelView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    DefaultLabelView(const char *name, components::Label *label, Skin *skin);

    void updateView() override;

private:
    // The meshes are children of this node, the properties belong to the rectangle.
    scene::meshes::SizeableRectangleMesh *mMesh;
    scene::meshes::TextMesh *mText;
    scene::properties::TextureProperty *mTexture;
    scene::properties::MaterialProperty *mMaterial;
};

} // namespace nurel::ui::views
