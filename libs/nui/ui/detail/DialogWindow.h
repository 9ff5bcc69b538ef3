#pragma once

#include "nui/ui/components/Panel.h"

/// The windows of dialogs, and how their parts are found.
namespace nurel::ui::detail {

/// The first component of that name and type below the window, depth first; null when there is none, and for null.
Component *findPart(const Container *window, const char *name, const core::Type &type);

/// Raises `core::IllegalStateException` when it is not there.
Component &requirePart(const Container *window, const char *name, const core::Type &type);

template <class Part>
Part *findPart(const Container *window, const char *name) {
    return static_cast<Part *>(findPart(window, name, Part::TYPE));
}

template <class Part>
Part &requirePart(const Container *window, const char *name) {
    return static_cast<Part &>(requirePart(window, name, Part::TYPE));
}

/// The window of a dialog: shows what the `Dialog::Flag` bits say.
class CustomDialog : public components::Panel {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// The bits of the buttons that answer.
    static constexpr unsigned int ANSWER_MASK = 0x0f;

    explicit CustomDialog(const char *name) : Panel(name) {}

    /// Null for what is no such window, and for null.
    static CustomDialog *cast(Container *container) {
        return container && container->instanceOf(TYPE) ? static_cast<CustomDialog *>(container) : nullptr;
    }

    unsigned int getFlags() const { return mFlags; }

    /// Does nothing when told what it knows.
    void setFlags(unsigned int flags);

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    /// For what else the flags change.
    virtual void flagsApplied(unsigned int flags);

private:
    void showButtons();
    void stretchBody();
    void limitBody();
    float calculateMaximumWidth(const Container &body) const;
    float calculateMaximumHeight(const Container &body) const;

    // The first word that is set is applied in any case, but for this one: it leaves all as the template has it.
    unsigned int mFlags = 0xff;
};

/// The window of a dialog with a text and an icon.
class IconDialog : public CustomDialog {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    using CustomDialog::CustomDialog;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;

protected:
    void flagsApplied(unsigned int flags) override;
};

} // namespace nurel::ui::detail
