#include "nui/ui/views/WidgetView.h"

#include "nui/ui/Widget.h"

namespace nurel::ui::views {

constinit const core::Type WidgetView::TYPE("WidgetView", &ComponentView::TYPE);

WidgetView::WidgetView(const char *name, Widget *widget, Skin *skin) : ComponentView(name, widget, skin) {}

Widget *WidgetView::getWidget() const {
    return static_cast<Widget *>(getComponent());
}

} // namespace nurel::ui::views
