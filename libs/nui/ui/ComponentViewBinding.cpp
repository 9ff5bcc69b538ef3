#include "nui/ui/Component.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/Skin.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/Widget.h"

#include "foundation/core/Type.h"

namespace nurel::ui {

void Component::setView(ComponentView *view) {
    // 1.
    if (view == mView)
        return;
    // 2. and 3. The old view leaves the parent's content
    const core::SmartPtr<ComponentView> old = mView;
    ComponentView *parentView = mParent ? mParent->getView() : nullptr;
    if (parentView && old)
        parentView->removeView(old.get());
    dropView();
    mView = view;
    if (view)
        view->adoptComponent(this);
    // 4. The new one goes into it
    if (view && parentView)
        parentView->insertView(visit(parentView->getSkin()));
    // 5.
    setDirty(DIRTY_ALL);
}

void Component::dropView() {
    if (mView)
        mView->dropComponent(this);
    mView = nullptr;
}

void Component::clearView() {
    dropView();
}

void Component::setSkin(Skin *skin, bool force) {
    if (skin && (!mView || mView->getSkin() != skin || force))
        setView(skin->skin(this));
}

Skin *Component::getSkin() const {
    for (const Component *component = this; component; component = component->mParent) {
        if (component->mView)
            return component->mView->getSkin();
        if (component->instanceOf(Widget::TYPE))
            return SkinManager::getSingleton().getSkin(static_cast<const Widget *>(component)->getSkinName().c_str(),
                                                       true);
    }
    return SkinManager::getSingleton().getDefaultSkin();
}

} // namespace nurel::ui
