#pragma once

#include "nui/ui/components/Button.h"
#include "nui/ui/components/ComboList.h"

namespace nurel::ui::components {

/// Shows a choice, with an icon beside it, and lets it be changed: a click opens a `ComboList` in a widget of its own
/// that fills the screen, with the skin and the classes of the combo. A click anywhere closes it; one on another row
/// than the selected one chooses that. Choices are added to the list: `combo->getList()->addItem("text", nullptr)`;
/// subscribe to the selection there too.
///
/// A combo is a button that takes no keys. It starts with an empty text at the left and the icon, whose picture is a
/// sheet's, at the right.
///
/// The list is made when it is first asked for, and stays. A clone has a clone of the list. When a combo dies, an open
/// list is closed.
class Combo : public Button {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "combo"
    static const char *const ELEMENT;

    explicit Combo(const char *name = "");

    /// A copy shares the list, which goes on to choose for the source.
    Combo(const Combo &other);
    Combo &operator=(const Combo &other);
    ~Combo() override;

    /// Makes the list if there is none. Never null.
    ComboList *getList();

    /// Of the list; -1 when nothing is selected, or there is no list, which is not made for it.
    int getSelectedIndex() const;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    using Button::processEvent;
    /// Opens the list; one that is open already is opened anew, on top.
    UIEventHandler *processEvent(const ClickEvent &event) override;

private:
    bool itemSelected(Listbox *listbox, int index);
    bool closeList(UIEventHandler *handler, const ClickEvent &event);
    bool listClicked(UIEventHandler *handler, const ClickEvent &event);
    void adoptList(ComboList *list);
    void releaseList();
    void leaveWidget();
    void removeListWidget();

    core::SmartPtr<ComboList> mList;
    int mSelectionId = 0;           ///< of the subscription to the list's selection; 0 for none
    int mListClickId = 0;           ///< and of that to its clicks
    core::SmartPtr<Widget> mWidget; ///< the one that the list was opened in last, until it is closed
    int mCloseId = 0;               ///< of the subscription to its clicks
};

} // namespace nurel::ui::components
