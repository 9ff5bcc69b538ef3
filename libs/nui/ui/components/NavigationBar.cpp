#include "nui/ui/components/NavigationBar.h"

#include "foundation/core/Type.h"
#include "nengine/font/Font.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Label.h"

namespace nurel::ui::components {

constinit const core::Type NavigationBar::TYPE("NavigationBar", &Panel::TYPE);

NavigationBar::NavigationBar(float, const math::Vector4 &border, const math::Vector2 &buttonSize,
                             const char *className) {
    // 1. and 2.
    addClass(className);
    setAnchor(ANCHOR_TOP_LEFT);
    setBorder(border);
    // 3.
    const math::Vector4 &padding = getPadding();
    setSize(math::Vector2(0, buttonSize.y + padding.x + padding.z + border.x + border.z), math::Vector2(1, 0));
    // 4.
    makeLabel(className);
    // 5. and 6.
    mElements[ELEMENT_LEFT] = makeButton(buttonSize, ANCHOR_CENTER_LEFT, "Left", className);
    mRightButton = makeButton(buttonSize, ANCHOR_CENTER_RIGHT, "Right", className);
    mElements[ELEMENT_RIGHT] = mRightButton;
    // 7. Nothing to do: the mask is 0, and both are hidden
}

NavigationBar::~NavigationBar() = default;

void NavigationBar::makeLabel(const char *className) {
    mLabel = new Label("");
    mLabel->setAnchor(ANCHOR_CENTER);
    mLabel->setAutoSize(AUTO_SIZE_WIDTH | AUTO_SIZE_HEIGHT, math::Vector2::ZERO);
    mLabel->setVisible(true);
    mLabel->getTextMesh()->setHorizontalAlignment(font::Font::HA_CENTER);
    mLabel->getTextMesh()->setVerticalAlignment(font::Font::VA_CENTER);
    mLabel->addClass(className);
    mLabel->setEventMask(0);
    mLabel->setText("Title bar");
    _addChild(mLabel.get(), true);
}

core::SmartPtr<Button> NavigationBar::makeButton(const math::Vector2 &size, Anchor anchor, const char *text,
                                                 const char *className) {
    core::SmartPtr<Button> button(new Button(""));
    button->setSize(size, math::Vector2::ZERO);
    button->setAnchor(anchor);
    button->setVisible(false);
    button->addClass(className);
    button->setText(text);
    _addChild(button.get(), true);
    return button;
}

void NavigationBar::setText(const char *text) {
    mLabel->setText(text);
}

const char *NavigationBar::getText() const {
    return mLabel->getText();
}

Component *NavigationBar::getElement(ElementFlag flag) const {
    const auto found = mElements.find(flag);
    return found == mElements.end() ? nullptr : found->second.get();
}

void NavigationBar::setElement(ElementFlag flag, Component *element) {
    const auto found = mElements.find(flag);
    if (found == mElements.end() || found->second == element)
        return;
    const bool isElsewhere = element && element->hasParent() && element->getParent() != this;
    if (isElsewhere || (element && isDescendantOf(element)))
        return _addChild(element, true); // which raises, while nothing has changed yet
    const Keeper self(this);
    const core::SmartPtr<Component> next(element ? element : mRightButton.get());
    const core::SmartPtr<Component> before = found->second;
    found->second = next;
    removeChild(before.get());
    if (found->second != next) // a callback of the old one's removal has set another
        return;
    if (element)
        element->setAnchor(ANCHOR_CENTER_RIGHT);
    _addChild(next.get(), true);
}

void NavigationBar::setElementMask(unsigned int mask) {
    if (mask == mElementMask)
        return;
    const Keeper self(this);
    mElementMask = mask;
    for (const ElementFlag flag : {ELEMENT_LEFT, ELEMENT_RIGHT}) {
        const core::SmartPtr<Component> element = mElements[flag];
        element->setVisible((mElementMask & flag) != 0);
    }
}

} // namespace nurel::ui::components
