#pragma once

#include "foundation/mpl/Int2Type.h"
#include "nui/ui/Container.h"
#include "nui/ui/KeyboardOverlay.h"

#include <string>

namespace nurel::font {
class Font;
} // namespace nurel::font

namespace nurel::ui::components {

class Label;

/// An editor of one line. It holds the text, shows it by a label, or a row of mask characters in its place, keeps a
/// caret, scrolls to keep the caret in sight, and shows a placeholder while it is empty. With the focus, and when it is
/// clicked, it acquires the `KeyboardOverlay`.
///
/// All indexes and lengths count characters (code points), not bytes; a byte that is no UTF-8 counts as one. Text is
/// typed by `UIManager::textInput()`; Left, Right, Home, End, Backspace and Delete edit on the press, and the field
/// takes all other keys as well. Selection and clipboard are the application's.
///
/// Label and placeholder are children, made when they are first needed, with the element "text", the names "label" and
/// "placeholder" and the field's classes; they take no events and follow the field's state but for the focus. Nothing
/// but a sheet gives them a size and a place: the label should be anchored left and take its width from its text. What
/// is done to the field's classes is done to theirs. A label that is taken out is made anew when it is needed.
///
/// A clone has clones of the parts, its caret at the end of the text, and no subscribers.
class TextField
    : public Container,
      public core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, TextField *>,
      public core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, TextField *, KeyboardOverlay::TextEditingResult> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// The text has changed: called at the end of every operation that edits it. Subscribe by
    /// `field->ChangeCallbacks::subscribeCallback(...)`.
    using ChangeCallbacks = core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, TextField *>;

    /// The on-screen keyboard has ended its edit of this field; an accepted text is in the field by then.
    using FinishCallbacks =
        core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, TextField *, KeyboardOverlay::TextEditingResult>;

    /// "text"
    static const char *const ELEMENT;

    /// The one bit of the keyboard options that the field sets itself: whether it has a password character.
    static constexpr unsigned int KEYBOARD_PASSWORD = 0x10000;

    explicit TextField(const char *name = "");
    TextField(const TextField &other);
    TextField &operator=(const TextField &other);
    ~TextField() override;

    // --- Text. UTF-8; a null text counts as empty.

    /// The caret stays where it is. A maximum length does not hold here: a longer text is stored and shown whole. But
    /// while the label, from before, is over the maximum, the text becomes empty though the new one is shown; and
    /// `setText(getText())` then empties both.
    void setText(const char *text);
    void clearText() { setText(""); }

    /// The real text, also when it is masked. Valid until it is changed.
    const char *getText() const { return mText.c_str(); }

    /// Of what the label shows.
    unsigned int getTextLength() const;

    /// Puts the text in at the caret, as far as the maximum length allows, and calls nobody if that is nothing. It is
    /// made for the text of one key: of a longer run the field stores all that the maximum allows, but moves the caret
    /// by one only, shows one mask character for it, and shows one that the maximum has cut uncut.
    void insertText(const char *text);

    // --- Parts

    bool hasLabel() const { return findLabel() != nullptr; }

    /// Makes it if there is none.
    Label *getLabel() const { return ensureLabel(); }
    Label *ensureLabel() const;

    /// Makes it, and the label, if there is none. It is visible while the label shows nothing.
    Label *getPlaceholder() const { return ensurePlaceholder(); }
    Label *ensurePlaceholder() const;

    void setPlaceholderText(const char *text);

    /// "" without a placeholder, which is not made for it.
    const char *getPlaceholderText() const;

    /// Sets the font of the label, not of the placeholder.
    void setFont(font::Font *font);
    font::Font *getFont() const;

    /// Measures the room that scrolling leaves for the caret at the right edge: the width of an "m" in the label's
    /// font. To be called when the label got another font by other means than setFont().
    void refreshCharWidth() const;

    // --- Options

    /// At most four bytes are taken, of which the first character is shown for each character of the text. Null or ""
    /// ends the masking. What is on show stays as it is until the next setText().
    void setPasswordChar(const char *character);
    const char *getPasswordChar() const { return mPasswordChar; }
    bool isPassword() const { return mPasswordChar[0] != '\0'; }

    /// In characters; negative, as at first, for no limit. One below the present length empties the field.
    void setMaxLength(int length);
    int getMaxLength() const { return mMaxLength; }

    /// For the `KeyboardOverlay`, whose platform gives them their meaning. KEYBOARD_PASSWORD stays as isPassword() has
    /// it.
    void setKeyboardOptions(unsigned int options);
    unsigned int getKeyboardOptions() const { return mKeyboardOptions; }

    // --- Caret

    /// The character that the caret stands before; -1, as at first, at the end, where it stays when text follows. It
    /// may be past the end, which acts as the end.
    int getCaretIndex() const { return mCaretIndex; }

    /// Where the caret stands, in viewport coordinates as of the last update, and as high as a line: where an input
    /// method shows what is being composed.
    void getCaretBounds(math::Vector2 &minimum, math::Vector2 &maximum) const;

    // --- What a component does

    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    UIEventHandler *handleEvent(const UIEvent &event) override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    ComponentView *visit(Skin *skin) override;

    using Container::processEvent;
    /// Takes every key.
    UIEventHandler *processEvent(const KeyEvent &event) override;
    /// A text that begins with Backspace, Tab, Return or a line feed is no text to insert.
    UIEventHandler *processEvent(const TextEvent &event) override;
    UIEventHandler *processEvent(const ClickEvent &event) override;
    UIEventHandler *processEvent(const FocusEvent &event) override;

private:
    Label *findLabel() const;
    Label *findPlaceholder() const;
    Label *makePart(const char *name) const;
    std::string getMask(unsigned int characters) const;

    void acquireKeyboard();
    void endSubscription();
    bool inputFinished(KeyboardOverlay *overlay, Component *component, KeyboardOverlay::TextEditingResult result,
                       const char *text);

    void checkPlaceholder() const;

    /// The character before which the caret stands; the count where it stands at the end.
    unsigned int getCaretCharacter(unsigned int characters) const;
    void ensureCaret();
    void caretLeft();
    void caretRight();
    void caretStart();
    void caretEnd();
    void deleteCaretChar();
    void removeCaretChar();
    void caretMoved();
    void textEdited();
    void eraseCharacter(unsigned int index);

    // The parts, and what is measured on them, come to be while the field is only asked.
    mutable core::SmartPtr<Label> mLabel;
    mutable core::SmartPtr<Label> mPlaceholder;
    mutable float mCharWidth = 0;
    int mCaretIndex = -1;
    int mMaxLength = -1;
    char mPasswordChar[5] = {};
    std::string mText;
    unsigned int mKeyboardOptions = 0;
    unsigned int mFinishesBefore = 0; ///< how many the overlay had announced when this field subscribed
};

} // namespace nurel::ui::components
