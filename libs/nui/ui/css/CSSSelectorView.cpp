#include "nui/ui/css/CSSSelectorView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Selector.h"

namespace nurel::ui::css {

constinit const core::Type CSSSelectorView::TYPE("CSSSelectorView", &CSSView::TYPE);

CSSSelectorView::CSSSelectorView(components::Selector *component, CSSSkin *skin)
    : CSSView("CSSSelectorView", component, skin) {}

} // namespace nurel::ui::css
