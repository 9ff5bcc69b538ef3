#include "nui/ui/handlers/NavigationHandler.h"

#include "foundation/core/Type.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/components/NavigationBar.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/UIManagerScopes.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace nurel::ui::handlers {

using components::NavigationBar;
using components::Panel;

constinit const core::Type NavigationHandler::TYPE("NavigationHandler", &ComponentHandler::TYPE);

namespace {

constexpr float BAR_BORDER = 5;
constexpr float BUTTON_WIDTH = 100;

} // namespace

/// Whether the container can have the child; null counts as one.
bool NavigationHandler::canTake(const Container &container, const Component *child) {
    return !child || ((!child->hasParent() || child->getParent() == &container) && !container.isDescendantOf(child));
}

/// Raises what the container raises for a child that it cannot take, ahead of any change.
void NavigationHandler::checkCanTake(Container &container, Component *child) {
    if (!canTake(container, child))
        container.addChild(child);
}

NavigationHandler::NavigationHandler(float barHeight, float buttonHeight)
    : ComponentHandler("", nullptr), mRoot(new Panel("")) {
    // 1.
    mRoot->setSize(math::Vector2::ZERO, math::Vector2::ONE);
    setTarget(mRoot.get());
    // 2.
    mNavigationBar = new NavigationBar(barHeight, math::Vector4(BAR_BORDER, BAR_BORDER, BAR_BORDER, BAR_BORDER),
                                       math::Vector2(BUTTON_WIDTH, buttonHeight), "navigation-bar");
    mNavigationBar->setAnchor(Component::ANCHOR_TOP_LEFT);
    mNavigationBar->setSize(math::Vector2(0, barHeight), math::Vector2(1, 0));
    mRoot->addChild(mNavigationBar.get(), true);
    // 3.
    mBackButton = mNavigationBar->getElement(NavigationBar::ELEMENT_LEFT);
    mBackClickId = mBackButton->ClickCallbacks::subscribeCallback(this, &NavigationHandler::backClick);
    // 4. Without scroll bars, which would come and go with every body that slides
    mBodyContainer = new Panel("");
    mBodyContainer->setScrollMask(Container::SCROLL_NONE);
    mBodyContainer->setAnchor(Component::ANCHOR_BOTTOM_LEFT);
    mBodyContainer->setSize(math::Vector2(0, -barHeight), math::Vector2::ONE);
    mRoot->addChild(mBodyContainer.get(), true);
}

NavigationHandler::~NavigationHandler() {
    addRef(); // as in ~Component()
    mBackButton->ClickCallbacks::unsubscribeCallback(mBackClickId);
    mRoot->clearChildren();
    Stack stack;
    stack.swap(mStack);
    stack.clear();
    clearPending();
    mBody = nullptr;
    for (const Running &running : mRunning)
        running.animation->unsubscribeCallback(running.id);
}

NavigationBar *NavigationHandler::getNavigationBar() const {
    return mNavigationBar.get();
}

// --- Requests that wait

/// Whether an operation for the body may run at once: nothing is going on, or it is the turn of this body.
bool NavigationHandler::isGateOpen(const Component *body) const {
    if (mPending.empty())
        return !mAnimating;
    return mPending.front().info->body == body;
}

bool NavigationHandler::isPending(const Component *body) const {
    return std::any_of(mPending.begin(), mPending.end(),
                       [body](const Pending &pending) { return pending.info->body == body; });
}

void NavigationHandler::clearPending() {
    std::list<Pending> cleared;
    cleared.swap(mPending);
}

/// Runs what waits until one of the requests starts a transition, or has to wait again. The one at work is the head of
/// the list until it has run: this is how it gets past the gate. One that fails does not hold up the others.
void NavigationHandler::processPending() {
    if (mProcessing) // the pass that is under way goes on by itself
        return;
    const detail::FlagScope processing(mProcessing);
    std::exception_ptr failure;
    for (bool goOn = true; goOn && !mAnimating && !mPending.empty();) {
        const Pending head = mPending.front();
        try {
            goOn = runPending(head);
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
        if (!mPending.empty())
            mPending.pop_front();
    }
    if (failure)
        std::rethrow_exception(failure);
}

/// For an operation that may run at once: raises ahead of any change, also to the body, what it would raise later on.
void NavigationHandler::checkCanShow(Component *body, Component *rightElement) {
    if (!isGateOpen(body))
        return;
    checkCanTake(*mBodyContainer, body);
    checkCanTake(*mNavigationBar, rightElement);
}

/// False when the request waits again.
bool NavigationHandler::runPending(const Pending &pending) {
    BodyInfoPtr info = pending.info;
    if (pending.transition != Transition::T_NONE && info->animation) {
        // Which body it comes from was not known for certain when it was asked for.
        info = std::make_shared<BodyInfo>(*info);
        info->animation = Transition::build(pending.transition, mBody.get(), info->body.get(),
                                            pending.info->animation->getDuration(), nullptr);
    }
    switch (pending.kind) {
    case PENDING_PUSH:
        _pushBody(info, true);
        break;
    case PENDING_SET:
        _setBody(info);
        break;
    case PENDING_POP:
        return _popBody(info->animation.get());
    }
    return true;
}

// --- Push

NavigationHandler::BodyInfoPtr NavigationHandler::newBodyInfo(Component *body, const char *title, const char *backText,
                                                              Component *rightElement, AnimationContext *animation) {
    if (!title)
        title = body ? body->getName() : "";
    return std::make_shared<BodyInfo>(BodyInfo{title, backText ? backText : "", body, rightElement, animation});
}

void NavigationHandler::pushBody(Component *body, const char *title, const char *backText, Component *rightElement,
                                 AnimationContext *animation) {
    const Keeper self(this);
    _pushBody(newBodyInfo(body, title, backText, rightElement, animation), true);
}

AnimationContext *NavigationHandler::pushBody(Component *body, const char *title, const char *backText,
                                              Component *rightElement, float duration, Transition::Type type) {
    if (!body)
        return nullptr;
    const Keeper self(this);
    checkCanShow(body, rightElement);
    const core::SmartPtr<AnimationContext> animation(
        Transition::build(type, guessAnimationSourceBody(), body, duration, nullptr));
    pushBody(body, title, backText, rightElement, animation.get());
    setPendingTransition(type);
    return animation && animation->getRefCount() > 1 ? animation.get() : nullptr;
}

// The last one, also when it is not the request that was just made.
void NavigationHandler::setPendingTransition(Transition::Type type) {
    if (!mPending.empty())
        mPending.back().transition = type;
}

Component *NavigationHandler::guessAnimationSourceBody() const {
    if (!isAnimating())
        return mBody.get();
    const auto found = std::find_if(mPending.rbegin(), mPending.rend(),
                                    [](const Pending &pending) { return pending.kind != PENDING_POP; });
    return found != mPending.rend() ? found->info->body.get() : mAnimatingBody.get();
}

void NavigationHandler::_pushBody(const BodyInfoPtr &info, bool notify) {
    // 1. and 2.
    Component *body = info->body.get();
    if (!body)
        return;
    if (!isGateOpen(body)) {
        mPending.push_back({PENDING_PUSH, info});
        return;
    }
    // 3. The body first: the stack stays as it is when that fails
    checkCanTake(*mNavigationBar, info->rightElement.get());
    mBodyContainer->addChild(body, true);
    mStack.push_back(info);
    // 4. and 5.
    if (mBody && notify)
        fire(mBody.get(), NAVIGATION_PUSH_BEGIN, 0);
    fire(body, NAVIGATION_PUSH_BEGIN, -1);
    if (!isOnStack(info)) { // a callback has taken it off again
        if (mBody != body && mAnimatingBody != body && !containsBody(body))
            mBodyContainer->removeChild(body);
        return;
    }
    // 6. and 7.
    change(info->animation.get(), body, NAVIGATION_PUSH_END, notify);
}

// --- Set

void NavigationHandler::setBody(Component *body, const char *title, const char *backText, Component *rightElement,
                                AnimationContext *animation) {
    const Keeper self(this);
    _setBody(newBodyInfo(body, title, backText, rightElement, animation));
}

AnimationContext *NavigationHandler::setBody(Component *body, const char *title, const char *backText,
                                             Component *rightElement, float duration, Transition::Type type) {
    const Keeper self(this);
    checkCanShow(body, rightElement);
    const core::SmartPtr<AnimationContext> animation(
        Transition::build(type, guessAnimationSourceBody(), body, duration, nullptr));
    setBody(body, title, backText, rightElement, animation.get());
    setPendingTransition(type);
    return animation && animation->getRefCount() > 1 ? animation.get() : nullptr;
}

void NavigationHandler::_setBody(const BodyInfoPtr &info) {
    // 1.
    if (!isGateOpen(info->body.get())) {
        mPending.push_back({PENDING_SET, info});
        return;
    }
    // 2.
    checkCanShow(info->body.get(), info->rightElement.get());
    if (mStack.empty()) {
        setRestoreAC(nullptr, nullptr);
    } else {
        setRestoreAC(mStack.back()->animation.get(), mStack.back()->body.get());
        popAndDelete();
    }
    // 3.
    _pushBody(info, false);
}

// --- Pop

void NavigationHandler::popBody(AnimationContext *animation) {
    const Keeper self(this);
    const core::SmartPtr<AnimationContext> kept(animation);
    _popBody(animation);
}

/// False when it has to wait.
bool NavigationHandler::_popBody(AnimationContext *animation) {
    // 1.
    if (!isGateOpen(getBodyAt(0))) {
        mPending.push_back({PENDING_POP, newBodyInfo(nullptr, nullptr, nullptr, nullptr, animation)});
        return false;
    }
    // 2.
    checkCanTake(*mBodyContainer, getBodyAt(1));
    const BodyInfoPtr popped = pop(true);
    if (!popped)
        return true;
    // 3.
    const core::SmartPtr<Component> body(getBodyAt(0));
    mBodyContainer->addChild(body.get(), true);
    // 4. and 5.
    if (!animation)
        animation = popped->animation.get();
    if (animation)
        animation->setReverse(true);
    change(animation, body.get(), NAVIGATION_POP_END, true);
    return true;
}

/// Takes the top off the stack and returns it; null when there is none, and when a callback was faster.
NavigationHandler::BodyInfoPtr NavigationHandler::pop(bool notifyBelow) {
    if (mStack.empty())
        return nullptr;
    const BodyInfoPtr top = mStack.back();
    fire(top->body.get(), NAVIGATION_POP_BEGIN, 0);
    if (notifyBelow && mStack.size() > 1)
        fire(getBodyAt(1), NAVIGATION_POP_BEGIN, 1);
    if (!isOnStack(top))
        return nullptr;
    takeOff(top);
    return top;
}

void NavigationHandler::popAndDelete() {
    pop(false);
}

void NavigationHandler::removeBodyAt(unsigned int index, bool updateBackText) {
    const Keeper self(this);
    // 1. and 2.
    if (index >= mStack.size())
        return;
    if (index == 0) {
        pop(true);
        return;
    }
    // 3.
    const BodyInfoPtr removed = mStack[mStack.size() - 1 - index];
    fire(removed->body.get(), NAVIGATION_POP_BEGIN, static_cast<int>(index));
    const auto found = std::find(mStack.begin(), mStack.end(), removed);
    if (found == mStack.end()) // a callback was faster
        return;
    const BodyInfoPtr below = found == mStack.begin() ? nullptr : *std::prev(found);
    const BodyInfoPtr above = std::next(found) == mStack.end() ? nullptr : *std::next(found);
    mStack.erase(found);
    fire(removed->body.get(), NAVIGATION_POP_END, -1);
    // 4. and 5.
    if (!below || !above)
        return;
    if (updateBackText)
        setBodyBackText(above->body.get(), below->title.c_str());
    retarget(*below, *removed, *above);
}

// --- The stack

NavigationHandler::Stack::const_reverse_iterator NavigationHandler::findBodyInfo(const Component *body) const {
    return std::find_if(mStack.crbegin(), mStack.crend(),
                        [body](const BodyInfoPtr &info) { return info->body == body; });
}

bool NavigationHandler::isOnStack(const BodyInfoPtr &info) const {
    return std::find(mStack.begin(), mStack.end(), info) != mStack.end();
}

void NavigationHandler::takeOff(const BodyInfoPtr &info) {
    mStack.erase(std::find(mStack.begin(), mStack.end(), info));
}

Component *NavigationHandler::getBodyAt(unsigned int index) const {
    return index < mStack.size() ? mStack[mStack.size() - 1 - index]->body.get() : nullptr;
}

bool NavigationHandler::containsBody(const Component *body) const {
    return findBodyInfo(body) != mStack.crend();
}

bool NavigationHandler::isAnimating(const Component *body) const {
    return body && isAnimating() && (mAnimatingBody == body || mBody == body || isPending(body));
}

// --- Events

UIEventHandler *NavigationHandler::filterEvent(const UIEvent &event, UIEventHandler *handler) {
    return mAnimating ? nullptr : ComponentHandler::filterEvent(event, handler);
}

bool NavigationHandler::backClick(UIEventHandler *, const ClickEvent &) {
    const Keeper self(this);
    if (const core::SmartPtr<Component> body = mBody) {
        PopQueryResult result = POP_QUERY_ALLOW;
        PopQueryCallbacks::triggerCallbacks(this, body.get(), result);
        if (result == POP_QUERY_ALLOW)
            popBody(nullptr);
    }
    return false;
}

void NavigationHandler::fire(Component *body, NavigationAction action, int place) {
    const core::SmartPtr<Component> kept(body);
    NavigationCallbacks::triggerCallbacks(this, body, action, place);
}

} // namespace nurel::ui::handlers
