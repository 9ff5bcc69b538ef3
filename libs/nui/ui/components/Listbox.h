#pragma once

#include "nui/ui/Container.h"

#include <deque>
#include <functional>

namespace nurel::ui::components {

class Label;
class Panel;

/// A vertical list of texts of which one can be selected. Every row is a child, a label with the name "item" and the
/// element of the list, and the list scrolls like any container; a child "check" is the mark that lies over the
/// selected row. Rows and mark start with the list's classes, and what is done to the list's classes is done to theirs.
/// Nothing but a sheet gives the mark a size, and the rows a width.
///
/// A click selects a row when press and release are on it and the cursor has not moved far: a drag that scrolls does
/// not select. The row under the keyboard focus is another matter: a press moves it, and so do Up and Down, which stop
/// at the ends, when they are released; Return selects it. The list takes the focus like any component, with a tab
/// stop. It takes all keys, and does not scroll to the focus row.
///
/// Subscribe to the selection by `list->SelectionCallbacks::subscribeCallback(...)`: a callback gets the list and the
/// new index. Clicks run it; Return does not.
///
/// A row's states: STATE_CHECKED while it is selected, STATE_FOCUSED while it has the keyboard focus of the list,
/// STATE_HOVER.
///
/// The rows and the mark should be the only children: clearItems() and sort() take the others out. A clone has clones
/// of the rows, which share the data of their sources, and the selection.
class Listbox : public Container, public core::CallbackSubscriptor<Listbox, 1, bool, Listbox *, int> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    using SelectionCallbacks = core::CallbackSubscriptor<Listbox, 1, bool, Listbox *, int>;

    /// "listbox"
    static const char *const ELEMENT;

    /// Data that an application hangs on a row. Clones share it.
    class ItemData : public core::IRefCount {};

    struct ItemEntry {
        core::SmartPtr<Label> item;    ///< the row
        core::SmartPtr<ItemData> data; ///< may be null
    };

    /// Whether the first one comes ahead of the second.
    using Comparison = std::function<bool(const ItemEntry &, const ItemEntry &)>;

    explicit Listbox(const char *name = "");
    Listbox(const Listbox &other);
    Listbox &operator=(const Listbox &other);
    ~Listbox() override;

    // --- Rows. An index out of range changes nothing.

    /// Appends a row of the item height. Null counts as the empty text; the data, which may be null, gets a reference.
    /// The entry is valid until rows are removed or sorted.
    ItemEntry *addItem(const char *text, ItemData *data);

    /// Removing the selected row ends the selection, of which `notify` tells. The selection stays with its row when one
    /// above that is removed, and no callback runs. The focus stays at its index otherwise.
    void removeItem(unsigned int index, bool notify);

    /// Ends the selection too; no callback runs.
    void clearItems();

    unsigned int getItemCount() const { return static_cast<unsigned int>(mItems.size()); }

    /// Null for an index out of range.
    ItemEntry *getItemEntry(int index);
    const ItemEntry *getItemEntry(int index) const;
    ItemData *getItemData(int index) const;

    /// The row's text; for an index out of range, such as that of no selection, the no-item text.
    const char *getItemText(int index) const;
    void setItemText(int index, const char *text);

    /// The mark goes and comes with the selected row.
    void setItemVisible(int index, bool visible);
    void setAllItemsVisible(bool visible);

    /// Whether the row is shown as far as it and the list's ancestors go; it may be scrolled out of sight. False for an
    /// index out of range.
    bool isItemVisible(int index) const;

    /// Puts the rows in order; equal ones stay as they are among each other. The selection and the focus go with their
    /// rows, no callback runs, and the list is scrolled back to its start. What a comparison throws leaves the rows as
    /// they were, and so does a comparison that adds, removes or sorts rows itself.
    void sort(const Comparison &isAhead);

    // --- Selection

    /// Selects a row; below 0 selects none. An index at the count or above takes the look of a selected row from the
    /// one that is selected, and changes nothing else. With `notify` the callbacks run with the index as it is given,
    /// unless it is the selected one. The focus goes to the selected row.
    void setSelectedIndex(int index, bool notify);

    /// -1 when nothing is selected, as at first.
    int getSelectedIndex() const { return mSelectedIndex; }

    /// Null when nothing is selected. It is valid until rows are removed or sorted.
    const ItemEntry *getSelectedItem() const;

    /// What getItemText() gives where there is no row. Null counts as empty.
    void setNoItemText(const char *text);
    const char *getNoItemText() const { return mNoItemText.c_str(); }

    // --- Look

    /// Pixels, 20 at first, of the rows that are there and those to come.
    void setItemHeight(float height);
    float getItemHeight() const { return mItemHeight; }

    /// Pixels between rows, -1 at first: their borders coincide. It is the spacing of the list's `FlowLayout`; of a
    /// list that has been given another kind of layout it cannot be set, and is 0.
    void setItemSpacing(float spacing);
    float getItemSpacing() const;

    /// The mark. Null only in a copy of a list that had lost it.
    Panel *getCheck() const { return mCheck.get(); }

    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    UIEventHandler *handleEvent(const UIEvent &event) override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    ComponentView *visit(Skin *skin) override;
    void updateContent() override;
    void updateLayout() override;

    using Container::processEvent;
    UIEventHandler *processEvent(const KeyEvent &event) override;
    UIEventHandler *processEvent(const FocusEvent &event) override;

    /// The first row that the event's ray hits; -1 when there is none, and when it hits border or padding.
    int getHitChildIndex(const CursorEvent &event);

private:
    layouts::FlowLayout *getFlowLayout() const;
    Label *getRow(int index) const;
    void pressed(const MouseEvent &event);
    void clicked(const ClickEvent &event);
    void _setFocus(int index);
    void darkenFocusRow();
    void postSort(Component *selected);
    void updateCheck();
    void placeCheck();
    math::Vector2 getInset() const;
    void raiseCheck();
    bool isCheckOnTop() const;
    void copyItems(Listbox &target, core::CloningOptions &options) const;

    int mSelectedIndex = -1;
    int mFocusIndex = -1;
    std::deque<ItemEntry> mItems;
    core::SmartPtr<Panel> mCheck;
    float mItemHeight = 20;
    int mPressedIndex = -1; ///< the row on which the mouse button went down
    std::string mNoItemText;
    core::SmartPtr<Label> mFocusRow; ///< the row that was given STATE_FOCUSED, wherever it stands by now
};

} // namespace nurel::ui::components
