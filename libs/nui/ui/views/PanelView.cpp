#include "nui/ui/views/PanelView.h"

#include "nui/ui/components/Panel.h"

namespace nurel::ui::views {

constinit const core::Type PanelView::TYPE("PanelView", &ComponentView::TYPE);

PanelView::PanelView(const char *name, components::Panel *panel, Skin *skin) : ComponentView(name, panel, skin) {}

components::Panel *PanelView::getPanel() const {
    return static_cast<components::Panel *>(getComponent());
}

} // namespace nurel::ui::views
