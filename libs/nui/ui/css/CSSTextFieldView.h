#pragma once

#include "foundation/core/SmartPtr.h"
#include "nui/ui/css/CSSView.h"

namespace nurel::scene::meshes {
class SizeableRectangleMesh;
class TextMesh;
} // namespace nurel::scene::meshes

namespace nurel::ui::css {

/// The view of a text field: a box with a caret over it, which blinks while the field has the focus. The colour of the
/// field is the caret's; that of the text comes from the rules for its label.
///
/// The caret stands in the first label among the field's descendants, depth first. That is the field's own, unless the
/// field was given another one ahead of it: add labels to a field only after its text or its placeholder.
class CSSTextFieldView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSTextFieldView(components::TextField *field, CSSSkin *skin);
    ~CSSTextFieldView() override;

    /// Null until the first updateView().
    scene::meshes::SizeableRectangleMesh *getCaret() const { return mCaret; }

    void updateView() override;

    /// Puts the caret in its place after an updateView(), when the label has taken its own.
    bool updateInternal(float time, bool parentChanged) override;

protected:
    void buildGeometry() override;
    void apply(const Property *property) override;

private:
    void findText();
    void placeCaret();

    scene::meshes::SizeableRectangleMesh *mCaret = nullptr; ///< the overlay's
    core::SmartPtr<components::Label> mLabel;               ///< in which the caret stands
    core::SmartPtr<scene::meshes::TextMesh> mTextMesh;      ///< the label's view's; null until that is built
    bool mCaretPending = false;
};

} // namespace nurel::ui::css
