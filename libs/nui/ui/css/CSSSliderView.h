#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a slider: a box. Its thumb is a component with a view of its own.
class CSSSliderView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSSliderView(components::Slider *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
