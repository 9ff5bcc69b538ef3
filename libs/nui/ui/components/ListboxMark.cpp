// The mark of a list, which lies over the selected row.
#include "nui/ui/components/Listbox.h"

#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"

namespace nurel::ui::components {

void Listbox::updateContent() {
    updateCheck();
    Container::updateContent();
}

void Listbox::updateCheck() {
    if (!mCheck)
        return;
    const Keeper self(this); // hiding and removing it may call back
    const Label *row = getRow(mSelectedIndex);
    mCheck->setVisible(row && row->isSelfVisible());
    if (!getRow(mSelectedIndex))
        return;
    placeCheck();
    if (!isCheckOnTop())
        raiseCheck();
}

/// Over the middle of the selected row, where there is one.
void Listbox::placeCheck() {
    const core::SmartPtr<Label> row(getRow(mSelectedIndex));
    if (!row || !mCheck)
        return;
    if (row->isDirty(DIRTY_POSITION))
        row->update(); // the list has a new size
    mCheck->setPosition(math::Vector2(row->getPosition()) - getInset(), math::Vector2::ZERO);
}

/// What border and padding move the middle by, from which the mark's position counts.
math::Vector2 Listbox::getInset() const {
    const math::Vector4 &border = getBorder();
    const math::Vector4 &padding = getPadding();
    return math::Vector2(border.w + padding.w - border.y - padding.y, border.x + padding.x - border.z - padding.z) *
           0.5f;
}

/// The mark follows the row to where the layout has put it, so that nothing is measured where it was before.
void Listbox::updateLayout() {
    Container::updateLayout();
    placeCheck();
    if (mCheck && mCheck->isDirty(DIRTY_POSITION))
        mCheck->update();
}

/// Behind all children but those with a higher z-index, which raising does not get past.
bool Listbox::isCheckOnTop() const {
    const unsigned int count = getChildCount();
    if (count > 0 && getChildAt(count - 1) == mCheck.get())
        return true;
    const int index = getChildIndex(mCheck.get());
    const unsigned int next = static_cast<unsigned int>(index) + 1;
    return index >= 0 && (next >= count || getChildAt(next)->getZIndex() > mCheck->getZIndex());
}

void Listbox::raiseCheck() {
    const core::SmartPtr<Panel> check = mCheck;
    if (!check)
        return;
    if (check->getParent() == this) {
        setChildState(*check, check->getState() & ~STATE_HOVER); // nobody will tell it that the cursor has left
        removeChild(check.get());
    }
    if (!check->hasParent())
        _addChild(check.get(), false);
}

} // namespace nurel::ui::components
