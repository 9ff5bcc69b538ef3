#include "nui/ui/components/Checkbox.h"

#include "foundation/core/Type.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/CloneTarget.h"

#include <cstring>
#include <string>

namespace nurel::ui::components {

constinit const core::Type Checkbox::TYPE("Checkbox", &Container::TYPE);

const char *const Checkbox::ELEMENT = "checkbox";

namespace {

// The parts have classes of their own, so that a clone can tell them from what the application has put in.

class CheckboxPanel : public Panel {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    explicit CheckboxPanel(const char *element) : Panel("check", element) { setEventMask(0); }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<CheckboxPanel> copy(new CheckboxPanel(getElement().c_str()));
        _clone(copy.get(), options);
        return copy.release();
    }
};

class CheckboxLabel : public Label {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    explicit CheckboxLabel(const char *element) : Label("label", element) { setEventMask(0); }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<CheckboxLabel> copy(new CheckboxLabel(getElement().c_str()));
        _clone(copy.get(), options);
        return copy.release();
    }
};

constinit const core::Type CheckboxPanel::TYPE("CheckboxPanel", &Panel::TYPE);
constinit const core::Type CheckboxLabel::TYPE("CheckboxLabel", &Label::TYPE);

/// The first part of that name in the tree below the container, depth first.
template <class Part>
Part *findPart(const Container &container, const char *name) {
    const unsigned int count = container.getChildCount();
    for (unsigned int i = 0; i < count; ++i) {
        Component *child = container.getChildAt(i);
        if (child->instanceOf(Part::TYPE) && std::strcmp(child->getName(), name) == 0)
            return static_cast<Part *>(child);
        if (!child->isContainer())
            continue;
        if (Part *found = findPart<Part>(*static_cast<Container *>(child), name))
            return found;
    }
    return nullptr;
}

} // namespace

Checkbox::Checkbox(const char *name) : Checkbox(name, ELEMENT) {}

Checkbox::Checkbox(const char *name, const char *element) : Container(name, element) {
    disableEvents(UIEvent::ET_DRAG_EVENT);
    enableEvents(UIEvent::ET_CLICK_EVENT | UIEvent::ET_FOCUS_EVENT);
    setScrollMask(SCROLL_NONE);
    mCheck = new CheckboxPanel(getElement().c_str());
    Container::_addChild(mCheck.get(), true);
}

Checkbox::Checkbox(const Checkbox &) = default;
Checkbox &Checkbox::operator=(const Checkbox &) = default;
Checkbox::~Checkbox() = default;

void Checkbox::setText(const char *text) {
    ensureLabel()->setText(text);
}

const char *Checkbox::getText() {
    return ensureLabel()->getText();
}

Label *Checkbox::ensureLabel() {
    if (Label *label = getLabel())
        return label;
    mLabel = new CheckboxLabel(getElement().c_str());
    mLabel->setClasses(getClasses());
    _addChild(mLabel.get(), true);
    shareDisabled(*mLabel);
    return mLabel.get();
}

// It may have been taken out behind the checkbox's back. It is held, so that it can be asked.
Label *Checkbox::getLabel() const {
    return mLabel && mLabel->isDescendantOf(this) ? mLabel.get() : nullptr;
}

void Checkbox::setChecked(bool checked) {
    if (checked != mChecked)
        applyChecked(checked);
}

void Checkbox::applyChecked(bool checked) {
    mChecked = checked;
    if (!mCheck)
        return;
    const unsigned int others = mCheck->getState() & ~STATE_CHECKED;
    setChildState(*mCheck, checked ? others | STATE_CHECKED : others);
}

void Checkbox::addClass(const char *name) {
    Container::addClass(name);
    if (Label *label = getLabel())
        label->addClass(name);
    if (mCheck)
        mCheck->addClass(name);
}

void Checkbox::removeClass(const char *name) {
    if (!name)
        return Container::removeClass(name);
    const std::string kept(name); // it may be a key of one of the sets
    Container::removeClass(kept.c_str());
    if (Label *label = getLabel())
        label->removeClass(kept.c_str());
    if (mCheck)
        mCheck->removeClass(kept.c_str());
}

void Checkbox::removeClasses() {
    Container::removeClasses();
    if (Label *label = getLabel())
        label->removeClasses();
    if (mCheck)
        mCheck->removeClasses();
}

UIEventHandler *Checkbox::handleEvent(const UIEvent &event) {
    Keeper self(this);
    UIEventHandler *consumer = Container::handleEvent(event);
    // The parts follow whatever the event has brought, but for the focus
    const unsigned int checked = mCheck ? mCheck->getState() & STATE_CHECKED : 0;
    const unsigned int state = checked | (getState() & ~STATE_FOCUSED);
    if (Label *label = getLabel())
        setChildState(*label, state);
    if (mCheck)
        setChildState(*mCheck, state);
    if (consumer == this)
        return self.release();
    Keeper kept(consumer);
    self.release();
    return kept.release();
}

UIEventHandler *Checkbox::processEvent(const ClickEvent &) {
    setChecked(!mChecked);
    return this;
}

ComponentView *Checkbox::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Checkbox::clone(core::CloningOptions &options) const {
    core::SmartPtr<Checkbox> copy(new Checkbox(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Checkbox::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Checkbox &target = *static_cast<Checkbox *>(object);
    target.clearChildren();
    target.mLabel = nullptr;
    target.mCheck = nullptr;
    Container::_clone(object, options);
    if (const Label *label = getLabel())
        target.mLabel = findPart<CheckboxLabel>(target, label->getName());
    if (mCheck)
        target.mCheck = findPart<CheckboxPanel>(target, mCheck->getName());
    target.setChecked(mChecked);
}

} // namespace nurel::ui::components
