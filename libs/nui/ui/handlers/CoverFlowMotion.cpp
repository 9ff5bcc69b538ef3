#include "nengine/renderer/Renderer.h"
#include "nengine/scene/Node.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/handlers/CoverFlowHandler.h"
#include "nui/ui/handlers/DataProvider.h"
#include "nui/ui/handlers/detail/CoverFlow.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

/// How a cover flow moves, and in which order it draws meanwhile.
namespace nurel::ui::handlers {

namespace {

/// The part of the way from the centre to a neighbour's slot at which the neighbour comes to the front.
constexpr float FRONT_THRESHOLD = 0.5f;

/// A drag that has come less far does not move anything.
constexpr float MINIMUM_DISTANCE = 1;

/// Who rests longer ahead of the release does not throw.
constexpr double LONGEST_PAUSE = 0.4;

/// From which part of the way on the motion is completed and not taken back.
constexpr float COMPLETED_FROM = 0.5f;

/// More whole positions than there can be entries.
constexpr float MOST_STEPS = 4294967296.0f;

/// Seconds of the frame clock.
double getTime() {
    const renderer::Renderer *renderer = renderer::Renderer::getSingletonPtr();
    return renderer ? renderer->getFrameTimeExact() : 0;
}

float mix(float from, float to, float t) {
    return from + (to - from) * t;
}

} // namespace

// --- events ---

UIEventHandler *CoverFlowHandler::filterEvent(const UIEvent &event, UIEventHandler *target) {
    const Keeper self(this);
    if (event.getType() == UIEvent::ET_DRAG_EVENT) {
        if (target && (target == mContainer.get() || !target->isEventEnabled(UIEvent::ET_DRAG_EVENT)))
            dragged(static_cast<const DragEvent &>(event));
    } else if (event.getType() == UIEvent::ET_MOUSE_EVENT) {
        // The speed stays: a carousel that is caught while it is fast coasts on.
        if (static_cast<const MouseEvent &>(event).getAction() == MouseEvent::MOUSE_PRESS && mState != COVER_IDLE)
            mState = COVER_RELEASED;
    }
    return ComponentHandler::filterEvent(event, target);
}

void CoverFlowHandler::dragged(const DragEvent &event) {
    const double now = getTime();
    if (event.getAction() == DragEvent::DRAG_BEGIN) {
        // The speed stays here too: a drag that ends at once throws as the one before did.
        mState = COVER_DRAGGING;
        mStateTime = now;
        mDragPosition = mDragStart = static_cast<float>(event.getCursor().x);
    } else if (event.getAction() == DragEvent::DRAG_MOVE) {
        dragMove(event.getDelta().x, now);
        mStateTime = now;
    } else if (event.getAction() == DragEvent::DRAG_END || event.getAction() == DragEvent::DRAG_CANCEL) {
        if (now - mStateTime > LONGEST_PAUSE)
            mSpeed = 0;
        mPreviousTime = now;
        mStateTime = now;
        mStartIndex = mCurrent;
        mThrowWidth = 0;
        mState = COVER_RELEASED;
    }
}

void CoverFlowHandler::dragMove(float delta, double now) {
    mDragPosition -= delta;
    const float distance = mDragPosition - mDragStart;
    if (!(std::abs(distance) > MINIMUM_DISTANCE)) {
        mSpeed = 0;
        return;
    }
    mRatio = std::min(countSteps(distance, getCentreWidth()), 1.0f);
    if (now > mPreviousTime) // two moves at one time say nothing of the speed
        mSpeed = delta / static_cast<float>(now - mPreviousTime);
    // By where the item is, and not the finger alone: one that turns back beyond where it began is followed a little
    // late, and by items that are narrower than two steps of the carousel on the wrong side until the next step.
    processDrag(getCentreX() + distance > 0 ? SHIFT_BACKWARD : SHIFT_FORWARD, mRatio);
}

// --- states ---

bool CoverFlowHandler::uiUpdate(UIManager::StageEvent stage) {
    if (stage != UIManager::STAGE_UPDATE || mState == COVER_IDLE)
        return false;
    const Keeper self(this);
    const double now = getTime();
    const float elapsed = static_cast<float>(std::max(now - mPreviousTime, 0.0));
    mPreviousTime = now;
    switch (mState) {
    case COVER_IDLE:
    case COVER_DRAGGING:
        break;
    case COVER_RELEASED:
        release(now);
        break;
    case COVER_COASTING:
        coast(now, elapsed);
        break;
    case COVER_SETTLING:
        settle(now);
        break;
    }
    return false;
}

void CoverFlowHandler::release(double now) {
    const float speed = std::abs(mSpeed);
    if (speed > mElasticSpeedMax)
        mSpeed = std::copysign(mElasticSpeedMax, mSpeed);
    if (mElasticSpeedMin >= speed) { // as it was thrown, not as it was limited
        mState = COVER_SETTLING;
        mStateTime = now;
    } else {
        mState = COVER_COASTING;
    }
}

/// The way counts from where the step began, on whichever side that is. So a carousel that was pulled beyond an end of
/// the data and is thrown back first jumps on by as many entries and returns over them; and one that coasts beyond an
/// end goes as far as a whole step, and snaps back to what is left of the next one.
void CoverFlowHandler::coast(double now, float elapsed) {
    const ShiftDirection direction = mSpeed > 0 ? SHIFT_FORWARD : SHIFT_BACKWARD;
    const float v = std::max(std::abs(mSpeed) - mElasticDeceleration * getAge(now), 0.0f);
    mDragPosition -= std::copysign(v, mSpeed) * elapsed;
    // All the way is counted by one width: a list of wide and narrow items runs on evenly, and never back.
    if (!(mThrowWidth > 0))
        mThrowWidth = getCentreWidth();
    const float steps = countSteps(mDragPosition - mDragStart, mThrowWidth);
    const float whole = std::floor(steps);
    mRatio = steps - whole;
    const std::int64_t way = static_cast<std::int64_t>(whole);
    const std::int64_t target = direction == SHIFT_FORWARD ? mStartIndex + way : mStartIndex - way;
    constexpr std::int64_t LAST = std::numeric_limits<unsigned int>::max();
    setCurrent(static_cast<unsigned int>(std::clamp(target, std::int64_t(0), LAST)), true);
    if (mState != COVER_COASTING) // a callback has taken hold of it
        return;
    if (v >= mElasticSpeedMin && v > 0 && isInData(target)) {
        processDrag(direction, mRatio);
    } else {
        mStateTime = now;
        mState = COVER_SETTLING;
    }
}

void CoverFlowHandler::settle(double now) {
    const float age = getAge(now);
    const float e = age < mElasticRecoveryTime ? age / mElasticRecoveryTime : 1.0f;
    const float ratio = mRatio;
    const bool isRight = mDragPosition - mDragStart + getCentreX() > 0;
    const ShiftDirection direction = isRight ? SHIFT_BACKWARD : SHIFT_FORWARD;
    const float destination = ratio >= COMPLETED_FROM && !isAtEnd(direction) ? 1.0f : 0.0f;
    processDrag(direction, (destination - ratio) * e + ratio);
    if (e >= 1 && mState == COVER_SETTLING)
        mState = COVER_IDLE;
}

/// Seconds since the state began.
float CoverFlowHandler::getAge(double now) const {
    return static_cast<float>(std::max(now - mStateTime, 0.0));
}

/// The width that it has at rest. The one in motion swings with the item's scale, and a throw counted by that one jumps
/// back and forth over entries.
float CoverFlowHandler::getCentreWidth() const {
    const Component *centre = getCurrentElement();
    return centre ? centre->getNaturalSize().x : 0;
}

/// How many positions the distance makes: half the centre item's width moves on by one. Without a width none.
float CoverFlowHandler::countSteps(float distance, float width) {
    const float steps = width > 0 ? std::abs(2 * distance / width) : 0;
    return steps >= 0 ? std::min(steps, MOST_STEPS) : 0;
}

float CoverFlowHandler::getCentreX() const {
    const Component *centre = getCurrentElement();
    return centre ? centre->getComponentPosition().absolute.x : 0;
}

// --- positions ---

void CoverFlowHandler::processDrag(ShiftDirection direction, float t) {
    if (mItems.empty())
        return;
    // 1.
    const unsigned int revision = mRevision;
    slideIn(direction, t);
    if (revision != mRevision)
        return;
    // 2. Where the outermost item goes to
    const bool isBackward = direction == SHIFT_BACKWARD;
    const float sign = isBackward ? 1.0f : -1.0f;
    const Slot &end = isBackward ? mSlots.back() : mSlots.front();
    const Slot outer = {end.x + getStep() * sign, sign * detail::HALF_TURN, detail::SIDE_SCALE};
    // 3. The place of the neighbour is that of the last frame
    const std::size_t n = mItems.size() / 2;
    const std::size_t next = isBackward ? n - 1 : n + 1;
    bool isNear = false;
    if (n > 0) {
        const float x = mItems[next].component->getComponentPosition().absolute.x;
        const float threshold = FRONT_THRESHOLD * mSlots[next].x;
        isNear = isBackward ? x > threshold : x < threshold;
    }
    if (isNear)
        bringNextToFront(direction);
    else
        sortViews(direction);
    // 4.
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        const Slot &from = mSlots[i];
        const bool isOutermost = i == (isBackward ? mItems.size() - 1 : 0);
        const Slot &to = isOutermost ? outer : mSlots[isBackward ? i + 1 : i - 1];
        detail::place(*mItems[i].component, mix(from.x, to.x, t), mix(from.rotation, to.rotation, t),
                      mix(from.scale, to.scale, t));
    }
    // 5. The items have arrived, which starts a new step
    if (t >= 1 && !isAtEnd(direction)) {
        mDragStart = mDragPosition;
        mRatio = 0;
        shift(direction);
    }
}

void CoverFlowHandler::slideIn(ShiftDirection direction, float t) {
    // 1. and 2.
    if (!showSpare(direction))
        return;
    // 3. From beyond the outermost slot into it
    const bool isForward = direction == SHIFT_FORWARD;
    const float sign = isForward ? 1.0f : -1.0f;
    const Slot &slot = isForward ? mSlots.back() : mSlots.front();
    detail::place(*mSpare.component, mix(slot.x + sign * getStep(), slot.x, t),
                  mix(sign * detail::HALF_TURN, slot.rotation, t), mix(detail::SIDE_SCALE, slot.scale, t));
}

/// Fills the spare item with the entry that comes in, or hides it where the data ends. Whether it is to be placed.
bool CoverFlowHandler::showSpare(ShiftDirection direction) {
    const unsigned int revision = mRevision;
    const core::SmartPtr<Component> spare = mSpare.component;
    const std::int64_t reach = std::int64_t(mExtraCount) + 1;
    const std::int64_t index = direction == SHIFT_FORWARD ? mCurrent + reach : mCurrent - reach;
    if (!isInData(index)) {
        spare->setVisible(false);
        if (revision == mRevision)
            detail::setNumberedName(*spare, "", mSpare.index, "(hidden)");
        return false;
    }
    const int shown = static_cast<int>(index);
    if (mSpare.isStale || mSpare.index != shown) {
        mSpare.index = shown;
        mSpare.isStale = false;
        const core::SmartPtr<DataProvider> provider = mDataProvider;
        provider->update(static_cast<unsigned int>(index), spare.get());
        if (revision != mRevision)
            return false;
        detail::setNumberedName(*spare, "", shown, "");
    }
    if (!spare->isSelfVisible()) {
        spare->setVisible(true);
        sortViews(direction);
        detail::setNumberedName(*spare, "", shown, "");
    }
    return true;
}

/// Every component moves on by one slot, the one that leaves at the end becomes the spare one, and that fills the other
/// end.
void CoverFlowHandler::shift(ShiftDirection direction) {
    if (direction == SHIFT_BACKWARD) {
        for (auto item = mItems.begin(); item != mItems.end(); ++item)
            std::swap(*item, mSpare);
        --mCurrent;
    } else {
        for (auto item = mItems.rbegin(); item != mItems.rend(); ++item)
            std::swap(*item, mSpare);
        ++mCurrent;
    }
    sortViews(direction);
    SelectionCallbacks::triggerCallbacks(this);
}

// --- order of drawing ---

/// The node whose children the views are; null without views.
scene::Node *CoverFlowHandler::getViewsParent() const {
    const Component *spare = mSpare.component.get();
    return spare && spare->hasView() ? spare->getView()->getParent() : nullptr;
}

void CoverFlowHandler::sortViews() {
    const scene::Node *parent = getViewsParent();
    if (!parent)
        return;
    // The side that the spare item is at: to the right it lies above the items on the left.
    const auto isOurs = [this](const scene::Frame *view) {
        return std::any_of(mItems.begin(), mItems.end(),
                           [view](const Item &item) { return item.component->getView() == view; });
    };
    for (const auto &child : parent->getChildren()) {
        if (child == mSpare.component->getView())
            return sortViews(SHIFT_BACKWARD);
        if (isOurs(child.get()))
            return sortViews(SHIFT_FORWARD);
    }
}

void CoverFlowHandler::sortViews(ShiftDirection direction) {
    if (!getViewsParent())
        return;
    mDrawOrder.clear();
    if (direction == SHIFT_BACKWARD)
        drawNext(mSpare);
    drawNextLeft(mExtraCount);
    if (direction == SHIFT_FORWARD)
        drawNext(mSpare);
    drawNextRight();
    drawNext(mItems[mExtraCount]);
    writeDrawOrder();
}

/// The neighbour that is about to be the centre comes to lie over the one that is.
void CoverFlowHandler::bringNextToFront(ShiftDirection direction) {
    if (!getViewsParent())
        return;
    mDrawOrder.clear();
    if (direction == SHIFT_FORWARD) {
        drawNextLeft(mExtraCount);
        drawNext(mItems[mExtraCount]);
        drawNext(mSpare);
        drawNextRight();
    } else {
        drawNext(mSpare);
        drawNextLeft(mExtraCount - 1);
        drawNextRight();
        drawNext(mItems[mExtraCount]);
        drawNext(mItems[mExtraCount - 1]);
    }
    writeDrawOrder();
}

void CoverFlowHandler::drawNext(const Item &item) {
    mDrawOrder.push_back(item.component->getView());
}

void CoverFlowHandler::drawNextLeft(unsigned int count) {
    for (unsigned int i = 0; i < count; ++i)
        drawNext(mItems[i]);
}

void CoverFlowHandler::drawNextRight() {
    for (unsigned int i = 2 * mExtraCount; i > mExtraCount; --i)
        drawNext(mItems[i]);
}

/// Gives the views that order among each other. The places that they hold among the node's children stay theirs, and
/// what else is there, such as the custom component's view, stays where it is.
void CoverFlowHandler::writeDrawOrder() {
    auto &children = getViewsParent()->getChildren();
    auto place = children.begin();
    auto wanted = mDrawOrder.begin();
    while (place != children.end() && wanted != mDrawOrder.end()) {
        if (*place == *wanted) {
            ++place;
            ++wanted;
        } else if (std::find(wanted, mDrawOrder.end(), place->get()) == mDrawOrder.end()) {
            ++place; // somebody else's
        } else {
            const auto found = std::find(place, children.end(), *wanted);
            if (found == children.end())
                ++wanted; // it has no view here
            else
                place->swap(*found);
        }
    }
}

} // namespace nurel::ui::handlers
