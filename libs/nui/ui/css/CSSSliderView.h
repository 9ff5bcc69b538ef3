#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a slider: a box. Its parts have views of their own.
class CSSSliderView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSSliderView(components::Slider *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
