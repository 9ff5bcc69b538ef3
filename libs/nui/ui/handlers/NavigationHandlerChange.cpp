#include "nui/ui/handlers/NavigationHandler.h"

#include "nui/ui/Animation.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/Container.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/NavigationBar.h"
#include "nui/ui/detail/ManagerAccess.h"

#include <algorithm>
#include <utility>

/// From one body to the next: what a transition ends with, and what is stored for the way back.
namespace nurel::ui::handlers {

using components::Button;
using components::NavigationBar;

// --- The end of a transition

/// Goes over to a body, null for none: with the animation, or at once.
void NavigationHandler::change(AnimationContext *animation, Component *body, NavigationAction action, bool notify) {
    UIManager *manager = animation ? detail::findManager() : nullptr;
    if (!manager) {
        setContainerBody(nullptr, AnimationEvent(AnimationEvent::FINISHED), body, action, notify);
        return;
    }
    mAnimating = true;
    mAnimatingBody = body;
    manager->commitAnimation(animation);
    const unsigned int number = ++mLastNumber;
    const core::SmartPtr<Component> kept(body);
    const int id = animation->subscribeCallback(
        [this, number, kept, action, notify](AnimationContext *context, const AnimationEvent &event) {
            const auto isThis = [number](const Running &running) { return running.number == number; };
            const auto found = std::find_if(mRunning.begin(), mRunning.end(), isThis);
            if (found == mRunning.end()) // it has ended already, and a subscriber behind failed
                return true;
            found->hasStarted = found->hasStarted || event.getType() == AnimationEvent::STARTED;
            if (!found->hasStarted) // the animation has just ended another transition, and is to run once more
                return false;
            if (event.getType() == AnimationEvent::FINISHED)
                mRunning.erase(found);
            return setContainerBody(context, event, kept.get(), action, notify);
        });
    mRunning.push_back({number, animation, id, false});
}

/// True when that is done.
bool NavigationHandler::setContainerBody(AnimationContext *, const AnimationEvent &event, Component *body,
                                         NavigationAction action, bool notify) {
    const Keeper self(this);
    const core::SmartPtr<Component> kept(body);
    // 1. and 2.
    if (event.getType() == AnimationEvent::STARTED) {
        mAnimating = true;
        mAnimatingBody = body;
    }
    if (event.getType() != AnimationEvent::FINISHED)
        return false;
    // 3.
    mAnimating = false;
    mAnimatingBody = nullptr;
    // 4. and 5.
    replaceBody(body);
    // 6. and 7.
    showTop();
    if (mStack.size() > 1 && notify)
        fire(getBodyAt(1), action, 1);
    // 8.
    if (!mStack.empty())
        applyRestoreAC(*mStack.back());
    // 9. and 10.
    fire(body, action, 0);
    processPending();
    return true;
}

/// The new one is on show before the callbacks of the old one's leaving run, which may change the body in their turn.
void NavigationHandler::replaceBody(Component *body) {
    const core::SmartPtr<Component> old = std::exchange(mBody, core::SmartPtr<Component>(body));
    if (canTake(*mBodyContainer, body))
        mBodyContainer->addChild(body, true); // a callback may have led away from it and back
    if (!old)
        return;
    if (old != body)
        mBodyContainer->removeChild(old.get());
    if (!containsBody(old.get()))
        fire(old.get(), NAVIGATION_POP_END, -1);
}

/// Brings the bar up to date with the stack.
void NavigationHandler::showTop() {
    if (!mStack.empty()) {
        const BodyInfoPtr top = mStack.back();
        Component *right = top->rightElement.get();
        if (!canTake(*mNavigationBar, right)) // it has been put elsewhere since
            right = nullptr;
        mNavigationBar->setText(top->title.c_str());
        mNavigationBar->setElement(NavigationBar::ELEMENT_RIGHT, right);
        if (mStack.empty() || mStack.back() != top) // a callback of the old one's removal has gone elsewhere
            return;
        if (right)
            mNavigationBar->enableElement(NavigationBar::ELEMENT_RIGHT);
        else
            mNavigationBar->disableElement(NavigationBar::ELEMENT_RIGHT);
    }
    if (mStack.size() > 1) {
        const BodyInfoPtr top = mStack.back();
        const BodyInfoPtr below = mStack[mStack.size() - 2];
        mNavigationBar->enableElement(NavigationBar::ELEMENT_LEFT);
        showBackText(top->backText.empty() ? below->title.c_str() : top->backText.c_str());
    } else {
        mNavigationBar->disableElement(NavigationBar::ELEMENT_LEFT);
    }
}

void NavigationHandler::showBackText(const char *text) {
    Component *left = mNavigationBar->getElement(NavigationBar::ELEMENT_LEFT);
    if (left && left->instanceOf(Button::TYPE))
        static_cast<Button *>(left)->setText(text);
}

// --- Stored animations

void NavigationHandler::setRestoreAC(AnimationContext *animation, Component *body) {
    mRestoreAnimation = animation;
    mRestoreTarget = animation ? body : nullptr;
}

/// The animation that knows the way back goes over from the replaced body to the one in its place.
void NavigationHandler::applyRestoreAC(BodyInfo &info) {
    if (!mRestoreAnimation || !mRestoreTarget)
        return;
    const core::SmartPtr<AnimationContext> restored = std::exchange(mRestoreAnimation, nullptr);
    const core::SmartPtr<Component> replaced = std::exchange(mRestoreTarget, nullptr);
    for (const core::SmartPtr<Animation> &animation : restored->getAnimations()) {
        if (animation->getTarget() == replaced.get())
            animation->setTarget(info.body.get());
    }
    info.animation = restored;
}

/// What led to the body that has gone leads to the one below it.
void NavigationHandler::retarget(const BodyInfo &below, const BodyInfo &removed, const BodyInfo &above) {
    if (!above.animation)
        return;
    for (const core::SmartPtr<Animation> &animation : above.animation->getAnimations()) {
        if (animation->getTarget() == removed.body.get())
            animation->setTarget(below.body.get());
    }
    if (!removed.animation || removed.animation == above.animation)
        return;
    for (const core::SmartPtr<Animation> &animation : removed.animation->getAnimations()) {
        if (animation->getTarget() == below.body.get() &&
            !above.animation->getAnimation(below.body.get(), animation->getType()))
            above.animation->addAnimation(animation.get());
    }
}

void NavigationHandler::setBodyAnimation(Component *body, AnimationContext *animation) {
    const core::SmartPtr<AnimationContext> kept(animation);
    const auto found = body ? findBodyInfo(body) : mStack.crbegin();
    if (found != mStack.crend())
        (*found)->animation = animation;
}

AnimationContext *NavigationHandler::getBodyAnimation(Component *body) const {
    const auto found = body ? findBodyInfo(body) : mStack.crbegin();
    return found != mStack.crend() ? (*found)->animation.get() : nullptr;
}

// --- Texts

void NavigationHandler::setBodyTitle(Component *body, const char *title) {
    const auto found = findBodyInfo(body);
    if (found == mStack.crend())
        return;
    BodyInfo &info = **found;
    info.title = title ? title : body->getName();
    if (found == mStack.crbegin())
        mNavigationBar->setText(info.title.c_str());
    else if (found == std::next(mStack.crbegin()) && mStack.back()->backText.empty())
        showBackText(info.title.c_str());
}

void NavigationHandler::setBodyBackText(Component *body, const char *text) {
    const auto found = findBodyInfo(body);
    if (found == mStack.crend())
        return;
    BodyInfo &info = **found;
    info.backText = text ? text : "";
    if (found != mStack.crbegin())
        return;
    if (!info.backText.empty() || mStack.size() < 2)
        showBackText(info.backText.c_str());
    else
        showBackText(mStack[mStack.size() - 2]->title.c_str());
}

} // namespace nurel::ui::handlers
