#include "nui/ui/components/Button.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "nengine/font/Font.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "ninput/input/Keyboard.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/detail/CloneTarget.h"

#include <string>

namespace nurel::ui::components {

constinit const core::Type Button::TYPE("Button", &Container::TYPE);

const char *const Button::ELEMENT = "button";

namespace {

constexpr int LABEL_Z_INDEX = -1;

/// A label in all but what it starts with: its clone is a plain label.
class ButtonLabel : public Label {
public:
    explicit ButtonLabel(const char *element) : Label("label", element) { setEventMask(0); }
};

void checkHasNoOtherParent(const Image *icon, const Container *owner) {
    if (icon && icon->hasParent() && icon->getParent() != owner)
        throw core::IllegalStateException("Component already has a parent");
}

/// The copy of a part, when it has become a child of the owner's copy.
template <class Part>
Part *findCopy(const Part *part, const Container &owner, const core::CloningOptions &options) {
    core::Object *copy = options.getCloned(part);
    if (!copy || !copy->instanceOf(Part::TYPE))
        return nullptr;
    Part *found = static_cast<Part *>(copy);
    return found->getParent() == &owner ? found : nullptr;
}

} // namespace

Button::Button(const char *name) : Button(name, ELEMENT) {
    enableEvents(UIEvent::ET_KEY_EVENT);
}

Button::Button(const char *name, const char *element) : Container(name, element) {
    disableEvents(UIEvent::ET_DRAG_EVENT);
    enableEvents(UIEvent::ET_CLICK_EVENT | UIEvent::ET_FOCUS_EVENT);
    setScrollMask(SCROLL_NONE);
}

Button::Button(const Button &) = default;
Button &Button::operator=(const Button &) = default;
Button::~Button() = default;

void Button::setText(const char *text) {
    ensureLabel()->setText(text);
}

const char *Button::getText() {
    return ensureLabel()->getText();
}

Label *Button::ensureLabel() {
    if (Label *label = getLabel())
        return label;
    mLabel = new ButtonLabel(getElement().c_str());
    mLabel->setZIndex(LABEL_Z_INDEX);
    mLabel->setClasses(getClasses());
    mLabel->getTextMesh()->setHorizontalAlignment(font::Font::HA_CENTER);
    mLabel->getTextMesh()->setVerticalAlignment(font::Font::VA_CENTER);
    _addChild(mLabel.get(), true);
    shareDisabled(*mLabel);
    return mLabel.get();
}

// A part may have been taken out behind the button's back. It is held, so that it can be asked.
Label *Button::getLabel() const {
    return mLabel && mLabel->isDescendantOf(this) ? mLabel.get() : nullptr;
}

Image *Button::getIcon() const {
    return mIcon && mIcon->isDescendantOf(this) ? mIcon.get() : nullptr;
}

void Button::setIcon(Image *icon) {
    const core::SmartPtr<Image> old(getIcon());
    if (icon == old.get())
        return;
    checkHasNoOtherParent(icon, this);
    const Keeper self(this);
    const core::SmartPtr<Image> kept(icon);
    mIcon = icon;
    removeChild(old.get());
    if (!icon || mIcon != icon) // a callback of the old one's removal has set another
        return;
    checkHasNoOtherParent(icon, this); // or has put this one elsewhere
    icon->setElement(getElement().c_str());
    icon->setName("icon");
    icon->setClasses(getClasses());
    icon->setEventMask(0);
    _addChild(icon, true);
    shareDisabled(*icon);
}

void Button::setIconVisible(bool visible) {
    const Keeper self(this);
    if (!getIcon())
        setIcon(new Image(""));
    if (const core::SmartPtr<Image> icon = getIcon())
        icon->setVisible(visible);
}

bool Button::isIconVisible() const {
    const Image *icon = getIcon();
    return icon && icon->isVisible();
}

void Button::setChecked(bool checked) {
    if (checked)
        enableState(STATE_CHECKED);
    else
        disableState(STATE_CHECKED);
    syncChildrenState(getState());
}

void Button::setPressed(bool pressed) {
    disableState(STATE_HOVER | (pressed ? STATE_RELEASED : STATE_ACTIVE));
    enableState(pressed ? STATE_ACTIVE : STATE_RELEASED);
    syncChildrenState(getState());
}

void Button::setCheckable(bool checkable) {
    if (checkable)
        enableFlags(FLAG_CHECKABLE);
    else
        disableFlags(FLAG_CHECKABLE);
    syncChildrenState(getState());
}

void Button::syncChildrenState(unsigned int state) {
    if (Label *label = getLabel())
        setChildState(*label, state);
    if (Image *icon = getIcon())
        setChildState(*icon, state);
}

void Button::addClass(const char *name) {
    Container::addClass(name);
    if (Label *label = getLabel())
        label->addClass(name);
    if (Image *icon = getIcon())
        icon->addClass(name);
}

void Button::removeClass(const char *name) {
    if (!name)
        return Container::removeClass(name);
    const std::string kept(name); // it may be a key of one of the sets
    Container::removeClass(kept.c_str());
    if (Label *label = getLabel())
        label->removeClass(kept.c_str());
    if (Image *icon = getIcon())
        icon->removeClass(kept.c_str());
}

void Button::removeClasses() {
    Container::removeClasses();
    if (Label *label = getLabel())
        label->removeClasses();
    if (Image *icon = getIcon())
        icon->removeClasses();
}

UIEventHandler *Button::handleEvent(const UIEvent &event) {
    Keeper self(this);
    // 1. Wherever the cursor is, and also for the release of a press that was cancelled
    if (isCheckable() && event.getType() == UIEvent::ET_MOUSE_EVENT) {
        const auto &mouse = static_cast<const MouseEvent &>(event);
        if (mouse.getAction() == MouseEvent::MOUSE_RELEASE && mouse.getButton() == 0)
            setChecked(!isChecked());
    }
    // 2. and 3. The parts follow whatever the event has brought, but for the focus
    UIEventHandler *consumer = Container::handleEvent(event);
    syncChildrenState(getState() & ~STATE_FOCUSED);
    // 4.
    if (consumer == this)
        return self.release();
    Keeper kept(consumer);
    self.release();
    return kept.release();
}

UIEventHandler *Button::processEvent(const KeyEvent &event) {
    if (event.isPressed() && event.getKey() == input::Keyboard::K_RETURN) {
        const Ray ray;
        const CursorPosition origin;
        handleEvent(ClickEvent(ray, origin, origin));
    }
    return this;
}

ComponentView *Button::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Button::clone(core::CloningOptions &options) const {
    core::SmartPtr<Button> copy(new Button(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Button::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Button &target = *static_cast<Button *>(object);
    target.clearChildren();
    target.mLabel = nullptr;
    target.mIcon = nullptr;
    target.mFlags = mFlags;
    Container::_clone(object, options);
    target.mLabel = findCopy(mLabel.get(), target, options);
    target.mIcon = findCopy(mIcon.get(), target, options);
}

} // namespace nurel::ui::components
