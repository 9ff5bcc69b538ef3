#pragma once

#include "foundation/core/SmartPtr.h"
#include "nui/ui/css/CSSView.h"

namespace nurel::scene::meshes {
class TextMesh;
} // namespace nurel::scene::meshes

namespace nurel::ui::css {

class Font;

/// The view of a label: a box with the label's text in it. Font, colour and alignment go to the text mesh.
///
/// A font size in pixels is reached by scaling the font; any other size is a factor on the font's own.
class CSSLabelView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSLabelView(components::Label *label, CSSSkin *skin);
    ~CSSLabelView() override;

    /// Null until the first updateView().
    scene::meshes::TextMesh *getTextMesh() const { return mTextMesh.get(); }

    void updateView() override;

protected:
    void buildGeometry() override;
    void apply(const Property *property) override;

private:
    void applyFont(const Font &font);

    core::SmartPtr<scene::meshes::TextMesh> mTextMesh;
};

} // namespace nurel::ui::css
