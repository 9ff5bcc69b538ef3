#pragma once

#include "foundation/core/CriticalSection.h"
#include "foundation/core/Future.h"
#include "nui/ui/Widget.h"

#include <deque>
#include <utility>
#include <vector>

namespace nurel::ui {

class AnimationEvent;

/// How a dialog was answered.
enum DialogResult : int {
    DIALOG_ACCEPTED = 0, ///< OK or Yes
    DIALOG_DECLINED = 1, ///< No
    DIALOG_CANCELLED = 2 ///< Cancel, the close button or Escape; also when it ended without an answer
};

/// A question or a form that stands over everything else until it is answered:
///
///     core::SmartPtr<Dialog> dialog(Dialog::newDialog("quit", "Quit", "Leave the game?", Dialog::FLAG_YES |
///                                                     Dialog::FLAG_NO | Dialog::FLAG_QUESTION));
///     dialog->ResultCallbacks::subscribeCallback([](Dialog *, DialogResult result) { …; return true; });
///     dialog->showModal(Dialog::BUTTON_CLOSE);
///
/// A dialog is a widget with the class "modal" that fills the stage, and holds one child: the window, made from a
/// template. While it is shown nothing under it gets the mouse; while it opens or closes, which takes 0.2 seconds, all
/// input is off. Dialogs stack: the one shown last is the current one. What is shown is held until it is closed.
///
/// Escape closes a dialog that has a Cancel or a close button, or nothing but an OK button.
///
/// **The template** is any panel. Its parts are found by name and class, in the order of the tree:
///
/// | Name | Class | |
/// |---|---|---|
/// | "lTitle" | `components::Label` | title |
/// | "pTitle" | `Component` | title bar; need not be there |
/// | "pBody" | `Container` | what the dialog is about |
/// | "pButtons" | `Container` | row of the answers |
/// | "bOK", "bYes", "bNo", "bCancel" | `components::Button` | answers |
/// | "bClose" | `Component` | close button; only a dialog with a body of its own needs it |
/// | "iTitleIcon" | `components::Image` | need not be there |
///
/// A dialog with a text puts the template "dialog-icon-body" into "pBody"; the label "lText" and the image "iIcon" come
/// from it, or from the dialog's own template. A part that is needed and not there raises `core::IllegalStateException`
/// "Dialog window %s has no %s %s" with the window's name, the class and the part's name.
///
/// All of it belongs to the thread that drives the `UIManager`, except the operations marked "any thread".
class Dialog : public Widget, public core::CallbackSubscriptor<Dialog, 1, bool, class Dialog *, DialogResult> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// Told of the answer, once for each time that the dialog is shown, while it starts to close.
    using ResultCallbacks = core::CallbackSubscriptor<Dialog, 1, bool, Dialog *, DialogResult>;

    enum Flag : unsigned int {
        FLAG_OK = 0x01,
        FLAG_YES = 0x02,
        FLAG_CANCEL = 0x04,
        FLAG_NO = 0x08,
        FLAG_INFO = 0x10,     ///< gives the icon the class "info"; goes with one of the next three
        FLAG_QUESTION = 0x20, ///< "question"
        FLAG_WARNING = 0x40,  ///< "warning", without FLAG_QUESTION
        FLAG_ERROR = 0x80,    ///< "error", without the other two
        FLAG_CLOSE = 0x200    ///< the close button
    };

    /// Any other value stands for OK.
    enum ButtonType : int { BUTTON_OK = 1, BUTTON_YES = 2, BUTTON_NO = 3, BUTTON_CANCEL = 4, BUTTON_CLOSE = 5 };

    Dialog(const Dialog &) = delete;
    Dialog &operator=(const Dialog &) = delete;

    /// Futures that wait for an answer get DIALOG_CANCELLED.
    ~Dialog() override;

    // --- Making one. It belongs to the caller and is not shown. A template that cannot be loaded is logged as
    // --- "Unable to load template %s", and its exception goes on to the caller; one that is no panel raises
    // --- `core::IllegalArgumentException` "Cannot clone %s as %s". A template's file is read once. Make it while no
    // --- animation is open: one that is records which buttons are shown, and shows it when it ends.

    /// With a body, which may be null: it goes into "pBody". It is taken over, also when this fails. Without the name
    /// of a template, "dialog".
    static Dialog *newDialog(const char *name, const char *title, Component *body, unsigned int flags);
    static Dialog *newDialog(const char *templateName, const char *name, const char *title, Component *body,
                             unsigned int flags);

    /// With a text and an icon.
    static Dialog *newDialog(const char *name, const char *title, const char *text, unsigned int flags);
    static Dialog *newDialog(const char *templateName, const char *name, const char *title, const char *text,
                             unsigned int flags);

    /// The translation key of an answer, "OK", "YES", "CANCEL" and "NO" at first, for dialogs that are made from here
    /// on. Flags that are no answer are ignored; a null key counts as empty.
    static void setI18N(Flag flag, const char *key);

    // --- Showing it

    /// Opens the dialog on top of everything and gives the focus to a button, to none with BUTTON_CLOSE. As soon as the
    /// dialog is placed under the cursor, or its opening animation begins, the focus is lost again. An animation that
    /// is open is dropped.
    ///
    /// The future gets the answer; any thread may wait for it, but the one that runs the dialog would wait for ever. A
    /// dialog that is shown already stays as it is, and the future is one more for its answer. One that a subscriber
    /// shows again while it is told of the answer waits for a new answer.
    core::Future<DialogResult> showModal(ButtonType focus);

    /// Answers the dialog: tells the subscribers and the futures at once, while the closing animation starts. Ignored
    /// when the dialog is not shown, so a second answer does no harm. An animation that is open is dropped.
    void close(DialogResult result);

    /// The dialog shown last, null when there is none. Any thread; elsewhere than on the manager's the dialog may be
    /// gone at any time.
    static Dialog *getCurrentModal();

    /// Forgets all shown dialogs; their futures get DIALOG_CANCELLED, their subscribers nothing. Their widgets stay on
    /// the stage: `UIManager::shutdown()` does the same and takes them down.
    static void shutdown();

    // --- What it shows

    /// The window: the first child; null when that is no container.
    Container *getWindow() const;

    /// The Flag bits of the window; 0 without one.
    unsigned int getFlags() const;

    /// Shows and hides the buttons and the icon, and gives the body the room that is left. The same word again does
    /// nothing. Classes of the icon that are there already stay.
    void setFlags(unsigned int flags);

    /// Null when there is none. So for the other getters.
    Container *getBody() const;
    components::Image *getIcon() const;
    components::Image *getTitleIcon() const;

    /// Only add the class.
    void setIconClass(const char *name);
    void setTitleIconClass(const char *name);

    const char *getTitle() const;
    void setTitle(const char *title);

    /// A close button need not be a `components::Button`; such a one has no text.
    Component *getButton(ButtonType type) const;
    void setButtonText(ButtonType type, const char *text);
    const char *getButtonText(ButtonType type) const;

    /// Offers keys that pass by to the dialog, and changes nobody's target. Subscribers of the filter signal are not
    /// asked.
    UIEventHandler *filterEvent(const UIEvent &event, UIEventHandler *handler) override;

protected:
    /// A dialog without a window.
    explicit Dialog(const char *name);

    using Widget::processEvent;
    /// Acts on Escape, and takes every key.
    UIEventHandler *processEvent(const KeyEvent &event) override;

private:
    static core::SmartPtr<Component> obtainPrototype(const char *templateName);
    static core::SmartPtr<Dialog> wrap(Container &window, const char *name, unsigned int flags);

    void answerBy(Component &part, DialogResult result);
    void answerByButtons();
    bool click(UIEventHandler *handler, const ClickEvent &event, DialogResult result);

    core::Future<DialogResult> newFuture();
    void completeFutures(DialogResult result);
    void startOpening();
    void startClosing();
    bool endAnimationExit(AnimationContext *context, const AnimationEvent &event);

    static std::deque<core::SmartPtr<Dialog>> mMODAL_STACK; ///< the current one last
    static core::CriticalSection mMODAL_STACK_SECTION;      ///< nobody is called out to from inside

    std::vector<std::pair<core::SmartPtr<Component>, int>> mAnswers; ///< parts, and subscriptions to their clicks
    std::vector<core::Future<DialogResult>> mFutures;                ///< those that wait
    const AnimationContext *mExit = nullptr; ///< the closing animation; it is only compared with
    bool mIsAnswering = false;               ///< its subscribers are being told
};

} // namespace nurel::ui
