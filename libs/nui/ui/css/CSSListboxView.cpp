#include "nui/ui/css/CSSListboxView.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Listbox.h"

namespace nurel::ui::css {

constinit const core::Type CSSListboxView::TYPE("CSSListboxView", &CSSView::TYPE);

CSSListboxView::CSSListboxView(components::Listbox *component, CSSSkin *skin)
    : CSSView("CSSListboxView", component, skin) {}

} // namespace nurel::ui::css
