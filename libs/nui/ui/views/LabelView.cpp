#include "nui/ui/views/LabelView.h"

#include "nui/ui/components/Label.h"

namespace nurel::ui::views {

constinit const core::Type LabelView::TYPE("LabelView", &ComponentView::TYPE);

LabelView::LabelView(const char *name, components::Label *label, Skin *skin) : ComponentView(name, label, skin) {}

components::Label *LabelView::getLabel() const {
    return static_cast<components::Label *>(getComponent());
}

} // namespace nurel::ui::views
