#pragma once

#include "nmain/math/Vector2.h"

#include <optional>

namespace nurel::ui {
class Component;
class Container;
} // namespace nurel::ui

namespace viewer {

/// The component of a name, searched depth first through the widgets from the topmost down. A path such as "form/ok"
/// descends: the component "ok" somewhere inside the component "form". A name may have a number, from 0: "list/item[2]"
/// is the third "item" in the list. Null when there is none.
nurel::ui::Component *findComponent(const char *path);

/// How many children a container has, its scroll bars included: they stand behind the others.
unsigned int countEntries(const nurel::ui::Container &container);

/// The text that a component shows, of a text field the real one, also when it is masked; null when its class has none
/// or nobody gave it one. Makes nothing.
const char *getComponentText(const nurel::ui::Component &component);

/// Whether a checkbox, a radio or a button is checked; for other classes, whether their state says so.
bool isComponentChecked(const nurel::ui::Component &component);

/// The number that a slider or a progress bar stands at; nothing for other classes.
std::optional<float> getComponentValue(const nurel::ui::Component &component);

/// The index of what is selected in a selector, a list or a combo, -1 for none; nothing for other classes.
std::optional<int> getComponentSelection(const nurel::ui::Component &component);

/// The centre of a component in screen pixels, as it is drawn: rotation, scale and depth of its parents counted in.
nurel::math::Vector2 getScreenCenter(const nurel::ui::Component &component);

} // namespace viewer
