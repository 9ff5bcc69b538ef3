#pragma once

#include "nui/ui/Container.h"

#include <deque>

namespace nurel::ui::components {

class Label;
class Panel;

/// Steps through a list of texts, of which it shows one at a time, with a button on either side. Nothing but these two
/// and the operations changes the selection: there are no keys and no animation.
///
/// Subscribe to changes by `selector->SelectionCallbacks::subscribeCallback(...)`: a callback gets the selector and the
/// index **before** the change, -1 for none.
///
/// The parts are children with the element of the selector: a label with the name "item", which takes no events, and
/// the two panels "left" and "right", whose look is a skin's. They start with a component's default size, in the middle
/// and at the edges. What is done to the selector's classes is done to theirs.
///
/// A clone has the entries of its source, which share their data, and parts of its own as they are when new: size and
/// look of the source's parts are not taken over.
class Selector : public Container, public core::CallbackSubscriptor<Selector, 1, bool, Selector *, int> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    using SelectionCallbacks = core::CallbackSubscriptor<Selector, 1, bool, Selector *, int>;

    /// "selector"
    static const char *const ELEMENT;

    /// Data that an application hangs on an entry. Clones share it.
    class ItemData : public core::IRefCount {};

    struct ItemEntry {
        std::string text;
        core::SmartPtr<ItemData> data; ///< may be null
    };

    explicit Selector(const char *name = "");
    Selector(const Selector &other);
    Selector &operator=(const Selector &other);
    ~Selector() override;

    // --- Entries

    /// Appends an entry. It is not selected, even if it is the first. Null counts as the empty text; the data, which
    /// may be null, gets a reference.
    void addItem(const char *text, ItemData *data);

    /// Ends the selection with the entries. With `notify` the callbacks run if there was one.
    void clearItems(bool notify);

    unsigned int getItemCount() const { return static_cast<unsigned int>(mItems.size()); }

    /// Null for an index out of range.
    const char *getItemText(int index) const;

    // --- Selection

    /// Selects an entry; below 0 selects none, at the count and above changes nothing. With `notify` the callbacks run
    /// unless the index is the selected one: also for one that changes nothing.
    void setSelectedIndex(int index, bool notify);

    /// -1 when nothing is selected, as at first.
    int getSelectedIndex() const { return mSelectedIndex; }

    /// Null when nothing is selected. It is valid until the entries are cleared.
    const ItemEntry *getSelectedItem() const;

    /// What is shown while nothing is selected; "---" at first. Null counts as empty.
    void setNoItemText(const char *text);
    const char *getNoItemText() const { return mNoItemText.c_str(); }

    /// Whether the buttons go on at the other end; false at first.
    void setCycle(bool cycle) { mCycle = cycle; }
    bool getCycle() const { return mCycle; }

    // --- Parts. They live as long as the selector.

    Label *getItem() const { return mItem.get(); }
    Panel *getLeft() const { return mLeft.get(); }
    Panel *getRight() const { return mRight.get(); }

    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    ComponentView *visit(Skin *skin) override;

    /// Step down and up, and run the callbacks if that changed the selection. Always false, which keeps them subscribed
    /// to the buttons.
    bool onLeftClick(UIEventHandler *handler, const ClickEvent &event);
    bool onRightClick(UIEventHandler *handler, const ClickEvent &event);

private:
    /// A subscription to the clicks of a button, which may outlive the selector. It is the selector's own: a copy of
    /// the selector starts without.
    class ClickSubscription {
    public:
        ClickSubscription();
        ClickSubscription(const ClickSubscription &);
        ClickSubscription &operator=(const ClickSubscription &) { return *this; }
        ~ClickSubscription();

        void subscribe(Panel *button, Selector *selector,
                       bool (Selector::*onClick)(UIEventHandler *, const ClickEvent &));

    private:
        core::SmartPtr<Panel> mButton;
        int mId = 0;
    };

    void step(int index);
    void showSelection();

    core::SmartPtr<Label> mItem;
    core::SmartPtr<Panel> mLeft;
    core::SmartPtr<Panel> mRight;
    ClickSubscription mLeftSubscription;
    ClickSubscription mRightSubscription;
    std::deque<ItemEntry> mItems;
    int mSelectedIndex = -1;
    std::string mNoItemText = "---";
    bool mCycle = false;
};

} // namespace nurel::ui::components
