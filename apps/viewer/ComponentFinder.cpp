#include "ComponentFinder.h"

#include "nengine/scene/Camera.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace viewer {

using nurel::math::Vector2;
using nurel::math::Vector4;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::UIManager;

namespace components = nurel::ui::components;

namespace {

/// A path from one of its names on.
struct Path {
    std::string_view name;
    std::string_view rest;   ///< what follows the name and its slash
    bool isLast = false;     ///< nothing follows
    unsigned int before = 0; ///< how many of the name are passed over
};

/// Reads "name[2]/rest". Brackets that hold no number belong to the name.
Path readPath(std::string_view text) {
    const std::size_t slash = text.find('/');
    Path path;
    path.name = text.substr(0, slash);
    path.isLast = slash == std::string_view::npos;
    path.rest = path.isLast ? std::string_view() : text.substr(slash + 1);
    const std::size_t bracket = path.name.rfind('[');
    if (bracket == std::string_view::npos || path.name.back() != ']')
        return path;
    const char *first = path.name.data() + bracket + 1;
    const char *last = path.name.data() + path.name.size() - 1;
    const auto [end, error] = std::from_chars(first, last, path.before);
    if (error == std::errc() && end == last)
        path.name = path.name.substr(0, bracket);
    else
        path.before = 0;
    return path;
}

Component *findBelow(Component &component, Path &path);

Component *findInChildren(Component &component, Path &path) {
    if (!component.isContainer())
        return nullptr;
    const auto &container = static_cast<Container &>(component);
    for (unsigned int i = 0; i < countEntries(container); ++i) {
        if (Component *found = findBelow(*container.getChildAt(i), path))
            return found;
    }
    return nullptr;
}

/// What the path leads to from a component of its first name; null when there is no such thing.
Component *follow(Component &component, const Path &path) {
    if (path.isLast)
        return &component;
    Path rest = readPath(path.rest);
    return findInChildren(component, rest);
}

/// Searches the component itself and what is inside it. Those that are passed over are counted off.
Component *findBelow(Component &component, Path &path) {
    if (path.name == component.getName()) {
        Component *found = follow(component, path);
        if (found && path.before == 0)
            return found;
        if (found)
            --path.before;
    }
    return findInChildren(component, path);
}

} // namespace

Component *findComponent(const char *text) {
    const UIManager &manager = UIManager::getSingleton();
    Path path = readPath(text);
    for (unsigned int i = manager.getWidgetCount(); i-- > 0;) {
        if (Component *found = findBelow(*manager.getWidgetAt(i), path))
            return found;
    }
    return nullptr;
}

unsigned int countEntries(const Container &container) {
    const unsigned int bars = (container.getScrollInfoH().bar ? 1U : 0U) + (container.getScrollInfoV().bar ? 1U : 0U);
    return container.getChildCount() + bars;
}

const char *getComponentText(const Component &component) {
    if (component.instanceOf(components::TextField::TYPE))
        return static_cast<const components::TextField &>(component).getText();
    const components::Label *label = nullptr;
    if (component.instanceOf(components::Label::TYPE))
        label = static_cast<const components::Label *>(&component);
    else if (component.instanceOf(components::Button::TYPE))
        label = static_cast<const components::Button &>(component).getLabel();
    else if (component.instanceOf(components::Checkbox::TYPE))
        label = static_cast<const components::Checkbox &>(component).getLabel();
    else if (component.instanceOf(components::Selector::TYPE))
        label = static_cast<const components::Selector &>(component).getItem();
    else if (component.instanceOf(components::Progress::TYPE))
        label = static_cast<const components::Progress &>(component).getLabel();
    return label ? label->getText() : nullptr;
}

bool isComponentChecked(const Component &component) {
    if (component.instanceOf(components::Checkbox::TYPE))
        return static_cast<const components::Checkbox &>(component).isChecked();
    return component.hasState(Component::STATE_CHECKED);
}

std::optional<float> getComponentValue(const Component &component) {
    if (component.instanceOf(components::Slider::TYPE))
        return static_cast<const components::Slider &>(component).getValue();
    if (component.instanceOf(components::Progress::TYPE))
        return static_cast<float>(static_cast<const components::Progress &>(component).getValue());
    return std::nullopt;
}

std::optional<int> getComponentSelection(const Component &component) {
    if (component.instanceOf(components::Selector::TYPE))
        return static_cast<const components::Selector &>(component).getSelectedIndex();
    if (component.instanceOf(components::Listbox::TYPE))
        return static_cast<const components::Listbox &>(component).getSelectedIndex();
    if (component.instanceOf(components::Combo::TYPE))
        return static_cast<const components::Combo &>(component).getSelectedIndex();
    return std::nullopt;
}

Vector2 getScreenCenter(const Component &component) {
    const UIManager &manager = UIManager::getSingleton();
    Vector2 point(component.getWorldPosition());
    if (component.hasView()) {
        const nurel::scene::Camera &camera = *manager.getCamera();
        const Vector4 world(component.getView()->getWorldTransform().getTranslation(), 1);
        const Vector4 clip = camera.getProjection() * (camera.getWorldInverseTransform() * world);
        if (clip.w > 0) {
            point.x = (clip.x / clip.w + 1) * 0.5F * static_cast<float>(manager.getScreenWidth());
            point.y = (1 - clip.y / clip.w) * 0.5F * static_cast<float>(manager.getScreenHeight());
        }
    }
    return {point.x / manager.getScale().x, point.y / manager.getScale().y};
}

} // namespace viewer
