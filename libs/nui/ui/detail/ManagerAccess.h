#pragma once

#include "nengine/renderer/Renderer.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIManager.h"

namespace nurel::ui::detail {

/// The manager, made if need be; null when there is none and no engine to make it in, as while a program ends.
inline UIManager *findManager() {
    if (!UIManager::isSingletonCreated() && !renderer::Renderer::isSingletonCreated())
        return nullptr;
    return UIManager::getSingletonPtr();
}

/// The open animation, which setters record into; null when there is none.
inline AnimationContext *findOpenAnimation() {
    UIManager *manager = findManager();
    return manager ? manager->getCurrentAnimation() : nullptr;
}

} // namespace nurel::ui::detail
