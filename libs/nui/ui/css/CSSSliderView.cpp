#include "nui/ui/css/CSSSliderView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Slider.h"

namespace nurel::ui::css {

constinit const core::Type CSSSliderView::TYPE("CSSSliderView", &CSSView::TYPE);

CSSSliderView::CSSSliderView(components::Slider *component, CSSSkin *skin)
    : CSSView("CSSSliderView", component, skin) {}

} // namespace nurel::ui::css
