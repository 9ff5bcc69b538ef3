#include "nui/ui/SkinManager.h"

namespace nurel::ui {

SkinManager::SkinManager() : core::CKHashMapValue<core::SmartPtr<Skin>>(true, nullptr) {}

SkinManager::~SkinManager() {
    clear(); // while a skin that goes can still ask whether it is the default one
}

void SkinManager::addSkin(Skin *skin) {
    if (skin)
        put(skin->getName(), core::SmartPtr<Skin>(skin));
}

void SkinManager::removeSkin(Skin *skin) {
    if (skin)
        remove(skin->getName());
}

Skin *SkinManager::getSkin(const char *name, bool useDefault) const {
    Skin *found = name && *name ? get(name).get() : nullptr;
    return !found && useDefault ? mDefaultSkin : found;
}

} // namespace nurel::ui
