#include "nui/ui/components/Combo.h"

#include "foundation/core/Type.h"
#include "foundation/logging/Logger.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/detail/ClickDistance.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/detail/ManagerAccess.h"

namespace nurel::ui::components {

constinit const core::Type Combo::TYPE("Combo", &Button::TYPE);

const char *const Combo::ELEMENT = "combo";

namespace {

/// The nearest widget upwards; null when there is none.
Widget *findWidget(Component *component) {
    while (component && !component->instanceOf(Widget::TYPE))
        component = component->getParent();
    return static_cast<Widget *>(component);
}

/// Tells the list that is cloned within it which combo it gets.
class OwnerScope {
public:
    OwnerScope(core::CloningOptions &options, Combo *owner)
        : mOptions(options), mBefore(options.get(ComboList::TYPE, false)) {
        mOptions.put(ComboList::TYPE, new ComboList::ComboListCO(owner));
    }
    ~OwnerScope() {
        if (mBefore)
            mOptions.put(ComboList::TYPE, mBefore.get());
        else
            mOptions.remove(ComboList::TYPE, false);
    }
    OwnerScope(const OwnerScope &) = delete;
    OwnerScope &operator=(const OwnerScope &) = delete;

private:
    core::CloningOptions &mOptions;
    const core::SmartPtr<core::CloningOptions::Option> mBefore;
};

} // namespace

Combo::Combo(const char *name) : Button(name, ELEMENT) {
    Label *label = ensureLabel();
    label->setText("");
    label->setAnchor(ANCHOR_CENTER_LEFT);
    setIconVisible(true);
    getIcon()->setAnchor(ANCHOR_CENTER_RIGHT);
}

Combo::Combo(const Combo &other) : Button(other), mList(other.mList) {}

Combo &Combo::operator=(const Combo &other) {
    if (this == &other)
        return *this;
    releaseList();
    Button::operator=(other);
    mList = other.mList;
    return *this;
}

Combo::~Combo() {
    addRef(); // as in ~Component()
    releaseList();
}

// --- The list

ComboList *Combo::getList() {
    if (!mList)
        adoptList(new ComboList(this));
    return mList.get();
}

int Combo::getSelectedIndex() const {
    return mList ? mList->getSelectedIndex() : -1;
}

void Combo::adoptList(ComboList *list) {
    mList = list;
    mSelectionId = list->SelectionCallbacks::subscribeCallback(this, &Combo::itemSelected);
    mListClickId = list->ClickCallbacks::subscribeCallback(this, &Combo::listClicked);
}

void Combo::releaseList() {
    leaveWidget();
    if (!mList)
        return;
    mList->SelectionCallbacks::unsubscribeCallback(mSelectionId);
    mSelectionId = 0;
    mList->ClickCallbacks::unsubscribeCallback(mListClickId);
    mListClickId = 0;
    if (mList->mOwner == this)
        mList->mOwner = nullptr;
    mList = nullptr;
}

/// Closes the widget that is still open, or is on its way out, and takes the list out of it.
void Combo::leaveWidget() {
    const core::SmartPtr<Widget> widget = mWidget;
    if (!widget)
        return;
    widget->ClickCallbacks::unsubscribeCallback(mCloseId);
    mCloseId = 0;
    mWidget = nullptr;
    if (UIManager *manager = detail::findManager())
        manager->removeWidget(widget.get());
}

// --- Opening and closing

UIEventHandler *Combo::processEvent(const ClickEvent &) {
    // 1.
    const core::SmartPtr<Widget> widget(new Widget("combo"));
    widget->setClasses(getClasses());
    if (const Widget *own = findWidget(this))
        widget->setSkinName(own->getSkinName().c_str());
    // 2. The list may be open, or its widget be on its way out
    leaveWidget();
    const core::SmartPtr<ComboList> list(getList());
    if (Container *parent = list->getParent())
        parent->removeChild(list.get());
    widget->addChild(list.get(), true);
    // 3.
    mWidget = widget;
    mCloseId = widget->ClickCallbacks::subscribeCallback(this, &Combo::closeList);
    // 4. and 5.
    if (UIManager *manager = detail::findManager())
        manager->addWidget(widget.get(), nullptr);
    logging::Logger::mROOT_LOGGER.debug("Combo click!");
    return this;
}

bool Combo::itemSelected(Listbox *, int) {
    removeListWidget();
    setText(getList()->getItemText(getList()->getSelectedIndex()));
    return false;
}

bool Combo::closeList(UIEventHandler *, const ClickEvent &) {
    leaveWidget();
    return true;
}

/// Outside the rows, too, and on the one that is selected already. A drag has scrolled.
bool Combo::listClicked(UIEventHandler *, const ClickEvent &event) {
    if (mWidget && mList->isDescendantOf(mWidget.get()) && detail::isInPlace(event))
        leaveWidget();
    return false;
}

/// The widget that the list is in, wherever it has been put. It goes with the next frame's events.
void Combo::removeListWidget() {
    Widget *widget = findWidget(mList.get());
    if (!widget)
        return;
    if (widget == mWidget)
        leaveWidget();
    else if (UIManager *manager = detail::findManager())
        manager->removeWidget(widget);
}

core::Object *Combo::clone(core::CloningOptions &options) const {
    core::SmartPtr<Combo> copy(new Combo(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Combo::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Combo &target = *static_cast<Combo *>(object);
    Button::_clone(object, options);
    target.releaseList();
    if (!mList)
        return;
    const OwnerScope owner(options, &target);
    const core::SmartPtr<core::Object> copy(mList->clone(options));
    target.adoptList(static_cast<ComboList *>(copy.get()));
}

} // namespace nurel::ui::components
