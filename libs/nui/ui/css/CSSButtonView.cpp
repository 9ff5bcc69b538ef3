#include "nui/ui/css/CSSButtonView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Button.h"

namespace nurel::ui::css {

constinit const core::Type CSSButtonView::TYPE("CSSButtonView", &CSSView::TYPE);

CSSButtonView::CSSButtonView(components::Button *component, CSSSkin *skin)
    : CSSView("CSSButtonView", component, skin) {}

} // namespace nurel::ui::css
