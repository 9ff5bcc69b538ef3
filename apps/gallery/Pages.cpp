#include "Page.h"

#include "Gallery.h"
#include "MotionPages.h"
#include "PageCallbacks.h"

#include "nui/ui/Component.h"
#include "nui/ui/Container.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"

#include <string_view>

namespace gallery {

namespace ui = nurel::ui;

namespace {

constexpr Page PAGES[] = {
    {"welcome", "Welcome", "What this is, and how to find your way", connectWelcome},
    {"boxes", "Boxes and skins", "Backgrounds, nine-slice images, spacing, opacity", nullptr},
    {"text", "Text", "Sizes, colours, alignment, wrapping, scripts", nullptr},
    {"states", "Buttons", "Kinds and states, toggles, signs, a callback", connectStates},
    {"choices", "Choices", "Checkboxes, switches and radio groups", connectChoices},
    {"form", "Form", "Labels and fields in two columns", connectForm},
    {"layout", "Layout", "Flows: direction, breaks, alignment", connectLayout},
    {"scrolling", "Scrolling", "Scrolled, nested, turned: what sticks out is clipped", connectScrolling},
    {"images", "Images", "Pictures, tinted signs, cells of one image", connectImages},
    {"lists", "Lists", "A list to sort, and combos that open one", connectLists},
    {"selectors", "Selectors", "One of several, a step at a time", connectSelectors},
    {"sliders", "Sliders", "Numbers to drag, and bars that follow", connectSliders},
    {"fields", "Text fields", "Typing: placeholders, masks, limits, scripts", connectFields},
    {"dialogs", "Dialogs", "Questions that want an answer", connectDialogs},
    {"keyboard", "Keyboard", "Keys on the screen, for whatever is edited", connectKeyboard},
    {"navigation", "Navigation", "Screens that slide, flip and fade, and go back", connectNavigation},
    {"cover-flow", "Cover flow", "Ten thousand covers to throw; a few exist", connectCoverFlow},
};

ui::Component *findInside(const ui::Component &component, std::string_view path) {
    if (!component.isContainer())
        return nullptr;
    const auto &container = static_cast<const ui::Container &>(component);
    const std::size_t slash = path.find('/');
    for (unsigned int i = 0; i < container.getChildCount(); ++i) {
        ui::Component *child = container.getChildAt(i);
        ui::Component *found = nullptr;
        if (path.substr(0, slash) == child->getName())
            found = slash == std::string_view::npos ? child : findInside(*child, path.substr(slash + 1));
        if (!found)
            found = findInside(*child, path);
        if (found)
            return found;
    }
    return nullptr;
}

} // namespace

std::span<const Page> getPages() {
    return PAGES;
}

ui::Component &PageTools::findComponent(const char *path, const core::Type &type) const {
    ui::Component *found = findInside(mRoot, path);
    if (!found || !found->instanceOf(type))
        throw core::IllegalArgumentException("the page '%s' has no %s '%s'", mRoot.getName(), type.getName(), path);
    return *found;
}

} // namespace gallery
