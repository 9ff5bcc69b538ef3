#include "nui/ui/views/DefaultPanelView.h"

namespace nurel::ui::views {

constinit const core::Type DefaultPanelView::TYPE("DefaultPanelView", &PanelView::TYPE);

DefaultPanelView::DefaultPanelView(const char *name, components::Panel *panel, Skin *skin)
    : PanelView(name, panel, skin) {}

} // namespace nurel::ui::views
