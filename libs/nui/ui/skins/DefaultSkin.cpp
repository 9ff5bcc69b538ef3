#include "nui/ui/skins/DefaultSkin.h"

#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/views/DefaultLabelView.h"
#include "nui/ui/views/DefaultPanelView.h"
#include "nui/ui/views/DefaultWidgetView.h"

namespace nurel::ui::skins {

constinit const core::Type DefaultSkin::TYPE("DefaultSkin", &Skin::TYPE);

ComponentView *DefaultSkin::skin(Component *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(Widget *widget) {
    core::SmartPtr<ComponentView> view(new views::DefaultWidgetView("DefaultWidgetView", widget, this));
    visitContainer(widget, view.get());
    return view.release();
}

ComponentView *DefaultSkin::visit(components::Label *label) {
    return new views::DefaultLabelView("DefaultLabelView", label, this);
}

ComponentView *DefaultSkin::visit(components::Panel *panel) {
    core::SmartPtr<ComponentView> view(new views::DefaultPanelView("DefaultPanelView", panel, this));
    visitContainer(panel, view.get());
    return view.release();
}

ComponentView *DefaultSkin::visit(components::Image *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::TextField *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::Listbox *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::Selector *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::Progress *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::Slider *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::Checkbox *) {
    return nullptr;
}

ComponentView *DefaultSkin::visit(components::Button *) {
    return nullptr;
}

} // namespace nurel::ui::skins
