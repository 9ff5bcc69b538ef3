#include "nui/ui/css/CSSPanelView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Panel.h"

namespace nurel::ui::css {

constinit const core::Type CSSPanelView::TYPE("CSSPanelView", &CSSView::TYPE);

CSSPanelView::CSSPanelView(components::Panel *component, CSSSkin *skin) : CSSView("CSSPanelView", component, skin) {}

} // namespace nurel::ui::css
