#pragma once

#include "nui/ui/Component.h"
#include "nui/ui/UIEvent.h"

#include <utility>

namespace gallery {

/// Runs the action at every click on the component, as long as the component lives.
template <class Action>
void onClick(nurel::ui::Component &component, Action action) {
    component.ClickCallbacks::subscribeCallback(
        [action = std::move(action)](nurel::ui::UIEventHandler *, const nurel::ui::ClickEvent &) mutable {
            action();
            return false;
        });
}

} // namespace gallery
