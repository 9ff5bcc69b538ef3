#include "nui/ui/components/Listbox.h"

#include "foundation/core/Type.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/layouts/FlowLayout.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_set>
#include <vector>

namespace nurel::ui::components {

using layouts::FlowLayout;

constinit const core::Type Listbox::TYPE("Listbox", &Container::TYPE);

const char *const Listbox::ELEMENT = "listbox";

namespace {

constexpr float BORDER_OVERLAP = -1; ///< rows overlap by their borders

// The parts have classes of their own, so that their clones take events as they do.

class ListboxItem : public Label {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    explicit ListboxItem(const char *text) : Label("item", Listbox::ELEMENT) {
        setEventMask(UIEvent::ET_HOVER_EVENT | UIEvent::ET_KEY_EVENT | EVENT_MASK_HITTABLE);
        setText(text);
    }

    void initializeHeight(float height) {
        const ComponentSize &size = getComponentSize();
        initializeSize(math::Vector2(size.absolute.x, height), math::Vector2(size.relative.x, 0));
    }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<ListboxItem> copy(new ListboxItem(getText()));
        _clone(copy.get(), options);
        return copy.release();
    }
};

class ListboxCheck : public Panel {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    ListboxCheck() : Panel("check", Listbox::ELEMENT) {
        setEventMask(UIEvent::ET_HOVER_EVENT | EVENT_MASK_HITTABLE);
        initializeVisible(false);
    }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<ListboxCheck> copy(new ListboxCheck);
        _clone(copy.get(), options);
        return copy.release();
    }
};

constinit const core::Type ListboxItem::TYPE("ListboxItem", &Label::TYPE);
constinit const core::Type ListboxCheck::TYPE("ListboxCheck", &Panel::TYPE);

/// Merges ever longer runs. Unlike the sorts of the standard library it stays within the entries whatever the
/// comparison answers.
void mergeSort(std::vector<Listbox::ItemEntry> &entries, const Listbox::Comparison &isAhead) {
    const std::size_t count = entries.size();
    std::vector<Listbox::ItemEntry> merged(count);
    const auto at = [](auto &list, std::size_t index) { return list.begin() + static_cast<std::ptrdiff_t>(index); };
    for (std::size_t length = 1; length < count; length *= 2) {
        for (std::size_t first = 0; first < count; first += 2 * length) {
            const std::size_t middle = std::min(first + length, count);
            const std::size_t last = std::min(middle + length, count);
            std::merge(at(entries, first), at(entries, middle), at(entries, middle), at(entries, last),
                       at(merged, first), isAhead);
        }
        entries.swap(merged);
    }
}

} // namespace

Listbox::Listbox(const char *name) : Container(name, ELEMENT), mCheck(new ListboxCheck) {
    enableEvents(UIEvent::ET_DRAG_EVENT | UIEvent::ET_KEY_EVENT);
    setScrollMask(SCROLL_VERTICAL);
    Container::_addChild(mCheck.get(), false);
    const core::SmartPtr<FlowLayout> layout(new FlowLayout);
    layout->setAnchor(ANCHOR_TOP_LEFT);
    layout->setFlowDirection(FlowLayout::VERTICAL);
    layout->setSpacing(math::Vector2(0, BORDER_OVERLAP));
    // One column, however long: what does not fit is scrolled
    layout->setSizeLimitPolicy(FlowLayout::ABSOLUTE);
    layout->setSizeLimit(std::numeric_limits<float>::infinity());
    setLayout(layout.get());
}

Listbox::Listbox(const Listbox &) = default;
Listbox &Listbox::operator=(const Listbox &) = default;

Listbox::~Listbox() {
    std::deque<ItemEntry> released; // their data may look at the list as it goes
    released.swap(mItems);
}

// --- Rows

Label *Listbox::getRow(int index) const {
    const ItemEntry *entry = getItemEntry(index);
    return entry ? entry->item.get() : nullptr;
}

Listbox::ItemEntry *Listbox::addItem(const char *text, ItemData *data) {
    const core::SmartPtr<ListboxItem> row(new ListboxItem(text));
    mItems.push_back({row, data});
    row->initializeHeight(mItemHeight);
    row->setClasses(getClasses());
    _addChild(row.get(), true);
    shareDisabled(*row);
    return &mItems.back();
}

void Listbox::removeItem(unsigned int index, bool notify) {
    if (index >= mItems.size())
        return;
    const Keeper self(this);
    const core::SmartPtr<Label> row = mItems[index].item;
    removeChild(row.get());
    // What the removal has called may have changed the rows
    const auto found =
        std::find_if(mItems.begin(), mItems.end(), [&row](const ItemEntry &entry) { return entry.item == row; });
    if (found == mItems.end())
        return;
    const int removed = static_cast<int>(found - mItems.begin());
    const core::SmartPtr<ItemData> data = found->data; // its end comes last
    mItems.erase(found);
    if (row && row == mFocusRow) {
        setChildState(*row, row->getState() & ~STATE_FOCUSED);
        mFocusRow = nullptr;
    }
    if (mSelectedIndex < 0)
        return;
    if (removed == mSelectedIndex)
        setSelectedIndex(-1, notify);
    else if (removed < mSelectedIndex)
        setSelectedIndex(mSelectedIndex - 1, false);
}

void Listbox::clearItems() {
    const Keeper self(this);
    mSelectedIndex = -1;
    mFocusRow = nullptr;
    std::deque<ItemEntry> cleared;
    cleared.swap(mItems); // what is called meanwhile may add rows
    removeChild(mCheck.get());
    clearChildren();
    if (mCheck && !mCheck->hasParent())
        _addChild(mCheck.get(), false);
}

Listbox::ItemEntry *Listbox::getItemEntry(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < mItems.size() ? &mItems[static_cast<std::size_t>(index)]
                                                                         : nullptr;
}

const Listbox::ItemEntry *Listbox::getItemEntry(int index) const {
    return const_cast<Listbox *>(this)->getItemEntry(index);
}

Listbox::ItemData *Listbox::getItemData(int index) const {
    const ItemEntry *entry = getItemEntry(index);
    return entry ? entry->data.get() : nullptr;
}

const char *Listbox::getItemText(int index) const {
    const Label *row = getRow(index);
    return row ? row->getText() : mNoItemText.c_str();
}

void Listbox::setItemText(int index, const char *text) {
    if (Label *row = getRow(index))
        row->setText(text);
}

void Listbox::setItemVisible(int index, bool visible) {
    const core::SmartPtr<Label> row(getRow(index));
    if (!row)
        return;
    const Keeper self(this); // hiding may take the focus from something
    row->setVisible(visible);
    if (mCheck && index == mSelectedIndex)
        mCheck->setVisible(visible);
    setDirty(DIRTY_CONTENT); // the rows below move up or down
}

void Listbox::setAllItemsVisible(bool visible) {
    const Keeper self(this);
    for (std::size_t index = 0; index < mItems.size(); ++index) {
        if (const core::SmartPtr<Label> row = mItems[index].item)
            row->setVisible(visible);
    }
    if (mCheck && mSelectedIndex >= 0)
        mCheck->setVisible(visible);
    setDirty(DIRTY_CONTENT);
}

bool Listbox::isItemVisible(int index) const {
    const Label *row = getRow(index);
    return row && row->isVisible();
}

// --- Order

void Listbox::sort(const Comparison &isAhead) {
    if (!isAhead)
        return;
    const Keeper self(this);
    const std::vector<ItemEntry> before(mItems.begin(), mItems.end());
    std::vector<ItemEntry> sorted = before;
    mergeSort(sorted, isAhead);
    const auto isSameRow = [](const ItemEntry &a, const ItemEntry &b) { return a.item == b.item; };
    if (!std::equal(mItems.begin(), mItems.end(), before.begin(), before.end(), isSameRow))
        return; // the comparison has changed the rows
    const core::SmartPtr<Label> selected(getRow(mSelectedIndex));
    const core::SmartPtr<Label> focused(getRow(mFocusIndex));
    const bool isLit = focused && focused->hasState(STATE_FOCUSED);
    std::copy(sorted.begin(), sorted.end(), mItems.begin());
    postSort(selected.get());
    mPressedIndex = -1;
    if (!focused)
        return;
    const auto found = std::find_if(mItems.begin(), mItems.end(),
                                    [&focused](const ItemEntry &entry) { return entry.item == focused; });
    _setFocus(found == mItems.end() ? -1 : static_cast<int>(found - mItems.begin()));
    if (!isLit)
        setChildState(*focused, focused->getState() & ~STATE_FOCUSED);
}

void Listbox::postSort(Component *selected) {
    int selectedIndex = -1;
    std::vector<core::SmartPtr<Label>> rows;
    rows.reserve(mItems.size());
    for (const ItemEntry &entry : mItems) {
        if (selected && entry.item == selected)
            selectedIndex = static_cast<int>(rows.size());
        rows.push_back(entry.item);
    }
    clearChildren();
    for (const core::SmartPtr<Label> &row : rows) {
        if (!row)
            continue;
        setChildState(*row, row->getState() & ~STATE_HOVER); // nobody will tell it that the cursor has left
        _addChild(row.get(), true);
    }
    raiseCheck();
    setSelectedIndex(selectedIndex, false);
}

// --- Selection and focus

void Listbox::setSelectedIndex(int index, bool notify) {
    if (index == mSelectedIndex)
        return;
    const Keeper self(this);
    // 1.
    if (Label *row = getRow(mSelectedIndex))
        setChildState(*row, row->getState() & ~(STATE_CHECKED | STATE_HOVER));
    // 2. At the count and above the row has lost its state and stays selected
    if (index < 0) {
        mSelectedIndex = -1;
        if (mCheck)
            mCheck->setVisible(false);
    } else if (Label *row = getRow(index)) {
        mSelectedIndex = index;
        setChildState(*row, row->getState() | STATE_CHECKED);
    }
    // 3. The mark moves with the next update
    setDirty(DIRTY_CONTENT | DIRTY_VIEW);
    // 4. The index that was asked for, not the one that is stored
    if (notify)
        SelectionCallbacks::triggerCallbacks(this, index);
    // 5.
    _setFocus(mSelectedIndex);
}

const Listbox::ItemEntry *Listbox::getSelectedItem() const {
    return getItemEntry(mSelectedIndex);
}

void Listbox::setNoItemText(const char *text) {
    mNoItemText = std::string(text ? text : ""); // it may be a part of the text in use
}

// The index is kept as it is, and touches a row only when it is in range: rows may have been removed since.
void Listbox::_setFocus(int index) {
    darkenFocusRow();
    mFocusIndex = index;
    mFocusRow = getRow(index);
    if (mFocusRow)
        setChildState(*mFocusRow, mFocusRow->getState() | STATE_FOCUSED);
}

void Listbox::darkenFocusRow() {
    for (Label *row : {getRow(mFocusIndex), mFocusRow.get()}) {
        if (row)
            setChildState(*row, row->getState() & ~STATE_FOCUSED);
    }
}

// --- Look

void Listbox::setItemHeight(float height) {
    mItemHeight = height;
    for (const ItemEntry &entry : mItems) {
        if (!entry.item)
            continue;
        const ComponentSize size = entry.item->getComponentSize();
        entry.item->setSize(math::Vector2(size.absolute.x, height), math::Vector2(size.relative.x, 0));
    }
}

FlowLayout *Listbox::getFlowLayout() const {
    return hasLayout() && getLayout()->instanceOf(FlowLayout::TYPE) ? static_cast<FlowLayout *>(getLayout()) : nullptr;
}

float Listbox::getItemSpacing() const {
    const FlowLayout *layout = getFlowLayout();
    return layout ? layout->getSpacing().y : 0;
}

void Listbox::setItemSpacing(float spacing) {
    FlowLayout *layout = getFlowLayout();
    if (!layout)
        return;
    layout->setSpacing(math::Vector2(layout->getSpacing().x, spacing));
    setDirty(DIRTY_CONTENT);
    setDirty__(DIRTY_CHILD_VIEW, DIRTY_UP); // so that the next frame comes here
}

void Listbox::addClass(const char *name) {
    Container::addClass(name);
    if (mCheck)
        mCheck->addClass(name);
    for (const ItemEntry &entry : mItems) {
        if (entry.item)
            entry.item->addClass(name);
    }
}

void Listbox::removeClass(const char *name) {
    if (!name)
        return Container::removeClass(name);
    const std::string kept(name); // it may be a key of one of the sets
    Container::removeClass(kept.c_str());
    if (mCheck)
        mCheck->removeClass(kept.c_str());
    for (const ItemEntry &entry : mItems) {
        if (entry.item)
            entry.item->removeClass(kept.c_str());
    }
}

void Listbox::removeClasses() {
    Container::removeClasses();
    if (mCheck)
        mCheck->removeClasses();
    for (const ItemEntry &entry : mItems) {
        if (entry.item)
            entry.item->removeClasses();
    }
}

// --- View and clone

ComponentView *Listbox::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Listbox::clone(core::CloningOptions &options) const {
    core::SmartPtr<Listbox> copy(new Listbox(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Listbox::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Listbox &target = *static_cast<Listbox *>(object);
    target.mSelectedIndex = -1;
    target.mFocusIndex = -1;
    target.mFocusRow = nullptr;
    target.mPressedIndex = -1;
    std::deque<ItemEntry>().swap(target.mItems); // their data may look at the list as it goes
    target.clearChildren();
    if (target.hasLayout())
        target.getLayout()->clearIgnores();
    Container::_clone(object, options);
    copyItems(target, options);
    target.mSelectedIndex = mSelectedIndex;
    target.mItemHeight = mItemHeight;
    target.mNoItemText = mNoItemText;
}

/// Finds the copies of rows and mark among the children of the list's copy.
void Listbox::copyItems(Listbox &target, core::CloningOptions &options) const {
    std::unordered_set<const core::Object *> children;
    const unsigned int count = target.getChildCount();
    for (unsigned int i = 0; i < count; ++i)
        children.insert(target.getChildAt(i));
    const auto findCopy = [&](const core::Object *part) {
        core::Object *copy = part ? options.getCloned(part) : nullptr;
        return children.count(copy) > 0 ? copy : nullptr;
    };
    for (const ItemEntry &entry : mItems) {
        core::SmartPtr<core::Object> copy(findCopy(entry.item.get()));
        if (!copy && entry.item)
            copy = entry.item->clone(options); // the row has been taken out of the list, and so is its copy
        core::SmartPtr<Label> row(static_cast<Label *>(copy.get()));
        if (row)
            setChildState(*row, row->getState() & ~STATE_FOCUSED);
        target.mItems.push_back({row, entry.data});
    }
    if (core::Object *check = findCopy(mCheck.get()))
        target.mCheck = static_cast<Panel *>(check);
    else if (target.mCheck && !target.mCheck->hasParent())
        target._addChild(target.mCheck.get(), false);
}

} // namespace nurel::ui::components
