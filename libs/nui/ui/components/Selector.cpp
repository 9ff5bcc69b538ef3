#include "nui/ui/components/Selector.h"

#include "foundation/core/Type.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/detail/ClonedPart.h"

namespace nurel::ui::components {

constinit const core::Type Selector::TYPE("Selector", &Container::TYPE);

const char *const Selector::ELEMENT = "selector";

namespace {

class SelectorItem : public Label {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    SelectorItem() : Label("item", Selector::ELEMENT) {
        setAnchor(ANCHOR_CENTER);
        setEventMask(0);
    }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<SelectorItem> copy(new SelectorItem);
        _clone(copy.get(), options);
        return copy.release();
    }
};

class SelectorButton : public Panel {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    SelectorButton(const char *name, Anchor anchor) : Panel(name, Selector::ELEMENT) {
        setAnchor(anchor);
        disableEvents(UIEvent::ET_FOCUS_EVENT);
    }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<SelectorButton> copy(new SelectorButton(getName(), getAnchor()));
        _clone(copy.get(), options);
        return copy.release();
    }
};

constinit const core::Type SelectorItem::TYPE("SelectorItem", &Label::TYPE);
constinit const core::Type SelectorButton::TYPE("SelectorButton", &Panel::TYPE);

} // namespace

Selector::ClickSubscription::ClickSubscription() = default;
Selector::ClickSubscription::ClickSubscription(const ClickSubscription &) {}

Selector::ClickSubscription::~ClickSubscription() {
    if (mButton)
        mButton->ClickCallbacks::unsubscribeCallback(mId);
}

void Selector::ClickSubscription::subscribe(Panel *button, Selector *selector,
                                            bool (Selector::*onClick)(UIEventHandler *, const ClickEvent &)) {
    mButton = button;
    mId = button->ClickCallbacks::subscribeCallback(selector, onClick);
}

Selector::Selector(const char *name)
    : Container(name, ELEMENT), mItem(new SelectorItem), mLeft(new SelectorButton("left", ANCHOR_CENTER_LEFT)),
      mRight(new SelectorButton("right", ANCHOR_CENTER_RIGHT)) {
    setScrollMask(SCROLL_NONE);
    disableEvents(UIEvent::ET_DRAG_EVENT);
    enableEvents(UIEvent::ET_CLICK_EVENT | UIEvent::ET_FOCUS_EVENT);
    showSelection();
    Container::_addChild(mItem.get(), true);
    Container::_addChild(mLeft.get(), true);
    Container::_addChild(mRight.get(), true);
    mLeftSubscription.subscribe(mLeft.get(), this, &Selector::onLeftClick);
    mRightSubscription.subscribe(mRight.get(), this, &Selector::onRightClick);
}

Selector::Selector(const Selector &) = default;
Selector &Selector::operator=(const Selector &) = default;
Selector::~Selector() = default;

void Selector::addItem(const char *text, ItemData *data) {
    mItems.push_back(ItemEntry{text ? text : "", data});
}

void Selector::clearItems(bool notify) {
    std::deque<ItemEntry> cleared; // the data goes last: its end may look at the selector
    cleared.swap(mItems);
    if (mSelectedIndex < 0)
        return;
    const int old = mSelectedIndex;
    mSelectedIndex = -1;
    showSelection();
    if (notify)
        SelectionCallbacks::triggerCallbacks(this, old);
}

const char *Selector::getItemText(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < mItems.size()
               ? mItems[static_cast<std::size_t>(index)].text.c_str()
               : nullptr;
}

const Selector::ItemEntry *Selector::getSelectedItem() const {
    return mSelectedIndex >= 0 ? &mItems[static_cast<std::size_t>(mSelectedIndex)] : nullptr;
}

void Selector::setSelectedIndex(int index, bool notify) {
    if (index == mSelectedIndex)
        return;
    const int old = mSelectedIndex;
    if (index < static_cast<int>(mItems.size())) {
        mSelectedIndex = index < 0 ? -1 : index;
        showSelection();
    }
    // An index past the end changes nothing and is told all the same.
    if (notify)
        SelectionCallbacks::triggerCallbacks(this, old);
}

void Selector::showSelection() {
    mItem->setText(mSelectedIndex < 0 ? mNoItemText.c_str() : getItemText(mSelectedIndex));
}

void Selector::setNoItemText(const char *text) {
    mNoItemText = std::string(text ? text : ""); // it may be a part of the text in use
    if (mSelectedIndex < 0)
        showSelection();
}

bool Selector::onLeftClick(UIEventHandler *, const ClickEvent &) {
    const int count = static_cast<int>(mItems.size());
    if (count == 0)
        return false;
    int index = mSelectedIndex - 1;
    if (index < 0)
        index = mCycle ? count - 1 : 0;
    step(index);
    return false;
}

bool Selector::onRightClick(UIEventHandler *, const ClickEvent &) {
    const int count = static_cast<int>(mItems.size());
    if (count == 0)
        return false;
    int index = mSelectedIndex + 1;
    if (index >= count)
        index = mCycle ? 0 : count - 1;
    step(index);
    return false;
}

void Selector::step(int index) {
    if (index == mSelectedIndex)
        return;
    const int old = mSelectedIndex;
    mSelectedIndex = index;
    showSelection();
    SelectionCallbacks::triggerCallbacks(this, old);
}

void Selector::addClass(const char *name) {
    Container::addClass(name);
    mItem->addClass(name);
    mLeft->addClass(name);
    mRight->addClass(name);
}

void Selector::removeClass(const char *name) {
    Container::removeClass(name);
    mItem->removeClass(name);
    mLeft->removeClass(name);
    mRight->removeClass(name);
}

void Selector::removeClasses() {
    Container::removeClasses();
    mItem->removeClasses();
    mLeft->removeClasses();
    mRight->removeClasses();
}

ComponentView *Selector::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Selector::clone(core::CloningOptions &options) const {
    core::SmartPtr<Selector> copy(new Selector(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Selector::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Selector &target = *static_cast<Selector *>(object);
    // 1. and 2. The parts of the copy stay and get the classes of the source
    const core::SmartPtr<Label> item = target.mItem;
    const core::SmartPtr<Panel> left = target.mLeft;
    const core::SmartPtr<Panel> right = target.mRight;
    target.removeClasses();
    target.clearChildren();
    Container::_clone(object, options);
    // 3. and 4. They take the places of those that came with the children
    detail::replaceClonedPart(target, mItem.get(), item.get(), options);
    detail::replaceClonedPart(target, mLeft.get(), left.get(), options);
    detail::replaceClonedPart(target, mRight.get(), right.get(), options);
    // 5. Without a selection first, so that the new no-item text is shown where there is none
    target.clearItems(false);
    target.mItems = mItems;
    target.setNoItemText(mNoItemText.c_str());
    target.mCycle = mCycle;
    target.setSelectedIndex(mSelectedIndex, false);
}

} // namespace nurel::ui::components
