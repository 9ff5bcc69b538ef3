// What a list makes of events.
#include "nui/ui/components/Listbox.h"

#include "ninput/input/Keyboard.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/detail/ClickDistance.h"

#include <algorithm>

namespace nurel::ui::components {

UIEventHandler *Listbox::handleEvent(const UIEvent &event) {
    Keeper self(this);
    UIEventHandler *consumer = Container::handleEvent(event);
    Keeper kept(consumer == this ? nullptr : consumer);
    if (event.getType() == UIEvent::ET_MOUSE_EVENT)
        pressed(static_cast<const MouseEvent &>(event));
    else if (event.getType() == UIEvent::ET_CLICK_EVENT)
        clicked(static_cast<const ClickEvent &>(event));
    if (consumer == this)
        return self.release();
    self.release();
    return kept.release();
}

// Selecting waits for the click
void Listbox::pressed(const MouseEvent &event) {
    if (event.getAction() != MouseEvent::MOUSE_PRESS)
        return;
    mPressedIndex = getHitChildIndex(event);
    if (mPressedIndex >= 0)
        _setFocus(mPressedIndex);
}

void Listbox::clicked(const ClickEvent &event) {
    if (detail::isInPlace(event)) {
        const int index = getHitChildIndex(event);
        if (index >= 0 && index == mPressedIndex) {
            setSelectedIndex(index, true);
            mPressedIndex = -1;
            return;
        }
    }
    if (mFocusIndex < 0 && !mItems.empty())
        _setFocus(0);
    mPressedIndex = -1;
}

int Listbox::getHitChildIndex(const CursorEvent &event) {
    math::Vector3 point(0, 0, 0);
    if (!Component::hitTest(event.getRay(), point)) // the list's own point, not that of a child
        return -1;
    const BoxModel &box = getBox();
    const math::Vector2 half = getNaturalSize() * 0.5f;
    const bool isInside =
        point.x >= box.border.w + box.padding.w - half.x && point.x <= half.x - box.border.y - box.padding.y &&
        point.y >= box.border.x + box.padding.x - half.y && point.y <= half.y - box.border.z - box.padding.z;
    if (!isInside)
        return -1;
    const auto isHit = [&](const ItemEntry &entry) { return entry.item && entry.item->hitTest(event.getRay(), point); };
    const auto hit = std::find_if(mItems.begin(), mItems.end(), isHit);
    return hit == mItems.end() ? -1 : static_cast<int>(hit - mItems.begin());
}

UIEventHandler *Listbox::processEvent(const KeyEvent &event) {
    if (event.isPressed())
        return this;
    int index = -1;
    if (event.getKey() == input::Keyboard::K_UP) {
        index = mFocusIndex - 1;
    } else if (event.getKey() == input::Keyboard::K_DOWN) {
        index = mFocusIndex + 1;
    } else if (event.getKey() == input::Keyboard::K_RETURN) {
        setSelectedIndex(mFocusIndex, false); // only a click tells of the selection
        index = mFocusIndex;
    }
    if (getRow(index))
        _setFocus(index);
    return this;
}

UIEventHandler *Listbox::processEvent(const FocusEvent &event) {
    if (event.getAction() == FocusEvent::FOCUS_GAINED) {
        if (mFocusIndex < 0 && !mItems.empty())
            mFocusIndex = 0;
        if (mFocusIndex >= 0)
            _setFocus(mFocusIndex);
    } else {
        darkenFocusRow(); // the index stays, so that the same row lights up again
    }
    return Container::processEvent(event);
}

} // namespace nurel::ui::components
