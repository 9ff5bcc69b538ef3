#pragma once

#include "nui/ui/Skin.h"

namespace nurel::ui::skins {

/// A minimal skin that needs no style sheet: widgets and labels are flat coloured rectangles, labels with their text on
/// them, and panels show nothing of their own. Other components get no view.
///
/// Its `skin` gives null for every component, so its views are made by `UIManager::setView` and by components that come
/// into a container with a view, and a widget needs `UIManager::setView` ahead of `UIManager::addWidget`.
class DefaultSkin : public Skin {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    static constexpr const char *NAME = "default";

    DefaultSkin() : Skin(NAME) {}

    // Null, whatever the component is.
    ComponentView *skin(Component *component) override;

    ComponentView *visit(components::Image *image) override;
    ComponentView *visit(components::TextField *field) override;
    ComponentView *visit(components::Listbox *listbox) override;
    ComponentView *visit(components::Selector *selector) override;
    ComponentView *visit(components::Progress *progress) override;
    ComponentView *visit(components::Slider *slider) override;
    ComponentView *visit(components::Checkbox *checkbox) override;
    ComponentView *visit(components::Button *button) override;
    ComponentView *visit(components::Panel *panel) override;
    ComponentView *visit(components::Label *label) override;
    ComponentView *visit(Widget *widget) override;
};

} // namespace nurel::ui::skins
