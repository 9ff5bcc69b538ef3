#include "nui/ui/css/CSSProgressView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Progress.h"

namespace nurel::ui::css {

constinit const core::Type CSSProgressView::TYPE("CSSProgressView", &CSSView::TYPE);

CSSProgressView::CSSProgressView(components::Progress *component, CSSSkin *skin)
    : CSSView("CSSProgressView", component, skin) {}

} // namespace nurel::ui::css
