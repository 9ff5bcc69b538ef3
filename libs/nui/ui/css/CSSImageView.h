#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of an image. It shows without a background too, and gives an image of automatic size a new one when its
/// texture changes.
class CSSImageView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSImageView(components::Image *image, CSSSkin *skin);

protected:
    void buildGeometry() override;

    /// A background with another texture makes the declared size of an image of automatic size one pixel larger in both
    /// axes, so that its size is worked out anew. Where two matching rules name different pictures, each restyle does
    /// that twice.
    void apply(const Property *property) override;
};

} // namespace nurel::ui::css
