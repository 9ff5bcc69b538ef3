#pragma once

#include "nui/ui/Container.h"

namespace nurel::ui::components {

class Label;
class Panel;

/// A control that a click checks and unchecks, with a mark and an optional text. Subscribe to the clicks by
/// `checkbox->ClickCallbacks::subscribeCallback(...)`: by then isChecked() tells the new state.
///
/// The mark (a panel) and the text are children. They have the element of the checkbox and the names "check" and
/// "label", start with its classes, take no events, and follow its state but for the focus. Being checked is shown by
/// the mark: the checkbox's own state word does not have STATE_CHECKED.
class Checkbox : public Container {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "checkbox"
    static const char *const ELEMENT;

    explicit Checkbox(const char *name = "");
    Checkbox(const Checkbox &other);
    Checkbox &operator=(const Checkbox &other);
    ~Checkbox() override;

    /// UTF-8; null counts as empty. Makes the label.
    void setText(const char *text);

    /// Makes the label too.
    const char *getText();

    /// The label, which is made if there is none. One that was taken out with removeChild() counts as none.
    Label *ensureLabel();

    /// Null when none was made.
    Label *getLabel() const;

    /// The mark. It lives as long as the checkbox; null only in the clone of a checkbox whose mark was taken out.
    Panel *getCheck() const { return mCheck.get(); }

    bool isChecked() const { return mChecked; }

    /// No callback tells of it.
    virtual void setChecked(bool checked);

    /// What is done to the checkbox's classes is done to those of label and mark.
    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    UIEventHandler *handleEvent(const UIEvent &event) override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    Checkbox(const char *name, const char *element);

    ComponentView *visit(Skin *skin) override;

    using Container::processEvent;
    UIEventHandler *processEvent(const ClickEvent &event) override;

    /// Stores the value and shows it by the mark, and does nothing else.
    void applyChecked(bool checked);

private:
    core::SmartPtr<Label> mLabel;
    core::SmartPtr<Panel> mCheck;
    bool mChecked = false;
};

} // namespace nurel::ui::components
