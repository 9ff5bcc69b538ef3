#include "nui/ui/css/CSSCheckboxView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Checkbox.h"

namespace nurel::ui::css {

constinit const core::Type CSSCheckboxView::TYPE("CSSCheckboxView", &CSSView::TYPE);

CSSCheckboxView::CSSCheckboxView(components::Checkbox *component, CSSSkin *skin)
    : CSSView("CSSCheckboxView", component, skin) {}

} // namespace nurel::ui::css
