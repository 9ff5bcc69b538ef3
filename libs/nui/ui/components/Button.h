#pragma once

#include "nui/ui/Container.h"

namespace nurel::ui::components {

class Image;
class Label;

/// A control that is clicked, with an optional text and an optional icon, and that can act as a toggle. Subscribe to
/// the clicks by `button->ClickCallbacks::subscribeCallback(...)`; the Return key clicks a button that has the focus.
///
/// Text and icon are children, made or set on demand. They have the element of the button and the names "label" and
/// "icon", start with the button's classes, take no events, and follow the button's state but for the focus. A part
/// that is taken out with removeChild() is no longer the button's: the next setText() makes a new label.
///
/// A clone has clones of the parts.
class Button : public Container {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "button"
    static const char *const ELEMENT;

    enum Flag : unsigned int {
        FLAG_CHECKABLE = 0x01 ///< a release of the mouse button toggles the checked state
    };

    explicit Button(const char *name = "");
    Button(const Button &other);
    Button &operator=(const Button &other);
    ~Button() override;

    // --- Text

    /// UTF-8; null counts as empty. Makes the label.
    void setText(const char *text);

    /// Makes the label too.
    const char *getText();

    /// The label, which is made if there is none: below the other children, its text centred.
    Label *ensureLabel();

    /// Null when none was made.
    Label *getLabel() const;

    // --- Icon

    /// Takes the picture as a child in place of the icon before; null only takes that away. The picture's element, name
    /// and event mask are overwritten, and it gets the button's classes. One that is another container's child raises
    /// `core::IllegalStateException` "Component already has a parent", and nothing changes.
    void setIcon(Image *icon);
    Image *getIcon() const;

    /// Makes an empty icon if there is none.
    void setIconVisible(bool visible);

    /// False without an icon, and while the button is not visible.
    bool isIconVisible() const;

    // --- State

    /// No callback tells of it, and the button need not be checkable.
    void setChecked(bool checked);
    bool isChecked() const { return hasState(STATE_CHECKED); }

    /// Makes the button look pressed or released; it is no click.
    void setPressed(bool pressed);
    bool isPressed() const { return hasState(STATE_ACTIVE); }

    /// A checkable button toggles at every release that follows a press on it, wherever the cursor is by then, and also
    /// when the toolkit releases it because something came between. The toggle comes ahead of the callbacks.
    void setCheckable(bool checkable);
    bool isCheckable() const { return getFlagsEnabled(FLAG_CHECKABLE) != 0; }

    /// Raw access to the flags; nothing is marked.
    void setFlags(unsigned int flags) { mFlags = flags; }
    void enableFlags(unsigned int mask) { mFlags |= mask; }
    void disableFlags(unsigned int mask) { mFlags &= ~mask; }
    unsigned int getFlags() const { return mFlags; }

    /// The flags of the mask that are set.
    unsigned int getFlagsEnabled(unsigned int mask) const { return mFlags & mask; }

    /// Writes a state word over those of label and icon.
    void syncChildrenState(unsigned int state);

    /// What is done to the button's classes is done to those of label and icon.
    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    UIEventHandler *handleEvent(const UIEvent &event) override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    /// For controls that derive from a button: the same, but without key events.
    Button(const char *name, const char *element);

    ComponentView *visit(Skin *skin) override;

    using Container::processEvent;
    /// Takes every key.
    UIEventHandler *processEvent(const KeyEvent &event) override;

private:
    core::SmartPtr<Label> mLabel;
    core::SmartPtr<Image> mIcon;
    unsigned int mFlags = 0;
};

} // namespace nurel::ui::components
