#include "RestylingSkin.h"

#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/css/CSS.h"

#include <vector>

namespace viewer {

namespace components = nurel::ui::components;

using nurel::math::Vector2;
using nurel::ui::Component;
using nurel::ui::ComponentView;
using nurel::ui::Container;
using nurel::ui::UIManager;
using nurel::ui::Widget;

namespace {

/// How far everything that is shown is scrolled.
class ScrollOffsets {
public:
    ScrollOffsets() {
        const UIManager &manager = UIManager::getSingleton();
        for (unsigned int i = 0; i < manager.getWidgetCount(); ++i)
            collect(*manager.getWidgetAt(i));
    }

    /// Scrolls to the same places again; whether one had moved.
    bool restore() const {
        bool moved = false;
        for (const Entry &entry : mEntries) {
            if (entry.container->getScrollOffset() == entry.offset)
                continue;
            entry.container->setScrollOffset(entry.offset);
            moved = true;
        }
        return moved;
    }

private:
    struct Entry {
        core::SmartPtr<Container> container;
        Vector2 offset;
    };

    void collect(Container &container) {
        if (container.getScrollOffset() != Vector2::ZERO)
            mEntries.push_back({&container, container.getScrollOffset()});
        for (unsigned int i = 0; i < container.getChildCount(); ++i) {
            Component *child = container.getChildAt(i);
            if (child->isContainer())
                collect(static_cast<Container &>(*child));
        }
    }

    std::vector<Entry> mEntries;
};

ComponentView *noted(StyleUndo &undo, ComponentView *view) {
    if (view && view->getComponent())
        undo.remember(*view->getComponent());
    return view;
}

} // namespace

void RestylingSkin::restyle(std::unique_ptr<nurel::ui::css::CSS> sheet) {
    const ScrollOffsets offsets;
    if (const nurel::ui::css::CSS *old = getStyleSheet())
        mUndo.undo(*old);
    setStyleSheet(sheet.release());
    UIManager::getSingleton().refresh();
    // Without its style a container may have had nothing to scroll for a moment.
    if (offsets.restore())
        UIManager::getSingleton().update();
}

ComponentView *RestylingSkin::visit(components::Image *image) {
    return noted(mUndo, CSSSkin::visit(image));
}

ComponentView *RestylingSkin::visit(components::TextField *field) {
    return noted(mUndo, CSSSkin::visit(field));
}

ComponentView *RestylingSkin::visit(components::Listbox *listbox) {
    return noted(mUndo, CSSSkin::visit(listbox));
}

ComponentView *RestylingSkin::visit(components::Selector *selector) {
    return noted(mUndo, CSSSkin::visit(selector));
}

ComponentView *RestylingSkin::visit(components::Progress *progress) {
    return noted(mUndo, CSSSkin::visit(progress));
}

ComponentView *RestylingSkin::visit(components::Slider *slider) {
    return noted(mUndo, CSSSkin::visit(slider));
}

ComponentView *RestylingSkin::visit(components::Checkbox *checkbox) {
    return noted(mUndo, CSSSkin::visit(checkbox));
}

ComponentView *RestylingSkin::visit(components::Button *button) {
    return noted(mUndo, CSSSkin::visit(button));
}

ComponentView *RestylingSkin::visit(components::Panel *panel) {
    return noted(mUndo, CSSSkin::visit(panel));
}

ComponentView *RestylingSkin::visit(components::Label *label) {
    return noted(mUndo, CSSSkin::visit(label));
}

ComponentView *RestylingSkin::visit(Widget *widget) {
    return noted(mUndo, CSSSkin::visit(widget));
}

} // namespace viewer
