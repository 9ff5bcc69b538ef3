#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Lock.h"
#include "nengine/scene/Node.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/Widget.h"
#include "nui/ui/detail/UIManagerScopes.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace nurel::ui {

void UIManager::queueWidget(WidgetQueueEntry::Action action, Widget *widget) {
    const core::Lock lock(mLock);
    if (!mEnding) // the queue will not run any more
        mWidgetQueue.push_back({action, widget});
}

void UIManager::addWidget(Widget *widget, Component *) {
    const core::SmartPtr<Widget> kept(widget); // goes here when the queue does not take it and nobody else holds it
    if (widget)
        queueWidget(WidgetQueueEntry::ADD, widget);
}

void UIManager::removeWidget(Widget *widget) {
    if (widget)
        queueWidget(WidgetQueueEntry::REMOVE, widget);
}

void UIManager::clearWidgets() {
    queueWidget(WidgetQueueEntry::CLEAR, nullptr);
}

bool UIManager::hasWidget(const Widget *widget) const {
    return std::find(mWidgets.begin(), mWidgets.end(), widget) != mWidgets.end();
}

Widget *UIManager::getWidgetAt(unsigned int index) const {
    return index < mWidgets.size() ? std::next(mWidgets.begin(), index)->get() : nullptr;
}

Widget *UIManager::getWidgetByName(const char *name) const {
    if (!name)
        return nullptr;
    for (const core::SmartPtr<Widget> &widget : mWidgets) {
        if (std::strcmp(widget->getName(), name) == 0)
            return widget.get();
    }
    const core::Lock lock(mLock);
    for (const WidgetQueueEntry &entry : mWidgetQueue) {
        if (entry.action == WidgetQueueEntry::ADD && std::strcmp(entry.widget->getName(), name) == 0)
            return entry.widget.get();
    }
    return nullptr;
}

Widget *UIManager::getWidget(Component *component) const {
    for (; component; component = component->getParent()) {
        if (component->instanceOf(Widget::TYPE))
            return static_cast<Widget *>(component);
    }
    return nullptr;
}

void UIManager::setView(Component *component) {
    Skin *skin = SkinManager::getSingleton().getDefaultSkin();
    if (component && skin && !component->hasView())
        component->visit(skin);
}

void UIManager::processQueue() {
    const core::Lock lock(mLock);
    if (mProcessingQueue)
        return;
    const detail::FlagScope processing(mProcessingQueue);
    // What is queued by the entries themselves waits for the next run.
    for (std::size_t left = mWidgetQueue.size(); left > 0; --left) {
        const WidgetQueueEntry entry = std::move(mWidgetQueue.front());
        mWidgetQueue.pop_front();
        switch (entry.action) {
        case WidgetQueueEntry::ADD:
            _addWidget(entry.widget.get());
            break;
        case WidgetQueueEntry::REMOVE:
            _removeWidget(entry.widget.get());
            break;
        case WidgetQueueEntry::CLEAR:
            _clearWidgets();
            break;
        }
    }
}

void UIManager::_addWidget(Widget *widget) {
    mWidgets.emplace_back(widget);
    ++mWidgetsRevision;

    Skin *skin = SkinManager::getSingleton().getSkin(widget->getSkinName().c_str(), true);
    if (!skin) {
        throw core::IllegalStateException("No Skin '%s' could be resolved for widget '%s'",
                                          widget->getSkinName().c_str(), widget->getName());
    }
    if (!widget->hasView() || widget->getView()->getSkin() != skin)
        static_cast<Component *>(widget)->setView(skin->skin(widget));

    mRoot->appendChild(widget->getView());
    widget->setDirty(Component::DIRTY_POSITION);
    widget->update();
    if (ComponentView *view = widget->getView()) {
        view->updateFX();
        view->updateProperties();
    }

    math::Vector3 point;
    const Component *hit = hitTest(takePointer().ray, point);
    if (hit && hit->isDescendantOf(widget))
        endPointerActions(); // it has come up under the cursor
}

void UIManager::endPointerActions() {
    const Pointer pointer = takePointer();
    setFocus(nullptr);
    if (Component *dragging = mDragging) {
        const detail::ForgetScope cancelled(mDragging);
        handleEvent(dragging, DragEvent(pointer.ray, pointer.cursor, DragEvent::DRAG_CANCEL, math::Vector2::ZERO));
    }
    leaveHovered(pointer);
    if (Component *pressed = mPressed) {
        const detail::ForgetScope released(mPressed);
        handleEvent(pressed, MouseEvent(pointer.ray, pointer.cursor, MouseEvent::MOUSE_RELEASE, 0, 0));
    }
}

void UIManager::_removeWidget(Widget *widget) {
    const auto found = std::find(mWidgets.begin(), mWidgets.end(), widget);
    if (found == mWidgets.end())
        return;
    const core::SmartPtr<Widget> kept = *found;
    mRoot->removeChild(widget->getView());
    widget->clearView();
    checkComponentRemoval(widget);
    mWidgets.erase(found);
    ++mWidgetsRevision;
}

void UIManager::_clearWidgets() {
    Widgets cleared;
    cleared.swap(mWidgets);
    ++mWidgetsRevision;
    for (const core::SmartPtr<Widget> &widget : cleared)
        mRoot->removeChild(widget->getView());
    const detail::ForgetScope dragging(mDragging);
    const detail::ForgetScope hovered(mHovered);
    const detail::ForgetScope pressed(mPressed);
    if (Component *focus = mFocus) {
        const detail::ForgetScope loss(mFocus);
        mTextBuffer.clear();
        handleEvent(focus, FocusEvent(FocusEvent::FOCUS_LOST));
        focus->disableState(Component::STATE_FOCUSED);
    }
}

} // namespace nurel::ui
