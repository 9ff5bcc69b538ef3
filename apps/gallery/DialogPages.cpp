// The page of dialogs: every way to make one, and what became of it.
#include "PageCallbacks.h"

#include "OnClick.h"
#include "Page.h"

#include "nui/ui/Dialog.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/TextField.h"

#include <string>

namespace gallery {

namespace ui = nurel::ui;

using ui::Dialog;
using ui::DialogResult;
using ui::UIManager;
using ui::components::Button;
using ui::components::Label;
using ui::components::Selector;
using ui::components::TextField;

namespace {

/// A window of the gallery's own, and what it stands in.
constexpr const char *BANNER = "dialog-banner";
constexpr const char *FORM = "dialog-form";

/// A dialog outlives the page that opened it, so what it writes to is held.
using Answer = core::SmartPtr<Label>;

const char *describe(DialogResult result) {
    switch (result) {
    case ui::DIALOG_ACCEPTED:
        return "accepted";
    case ui::DIALOG_DECLINED:
        return "declined";
    case ui::DIALOG_CANCELLED:
        return "cancelled";
    }
    return "";
}

/// Opening and closing take the focus away. It is given once the dialog stands there, and back to who had it before
/// once it is gone.
class DialogFocus {
public:
    DialogFocus(const core::SmartPtr<Dialog> &dialog, ui::Component &target)
        : mDialog(dialog), mTarget(&target), mOpener(UIManager::getSingleton().getFocus()) {}

    /// At every stage of a frame; true when there is nothing left to do.
    bool operator()(UIManager::StageEvent) {
        UIManager &manager = UIManager::getSingleton();
        const bool isThere = manager.hasWidget(mDialog.get());
        mWasThere = mWasThere || isThere;
        if (!mWasThere || !manager.isEnabled())
            return false;
        if (!isThere) {
            if (!manager.getFocus() && manager.getWidget(mOpener.get()))
                mOpener->setFocus();
            return true;
        }
        if (!mIsGiven && !manager.getFocus() && Dialog::getCurrentModal() == mDialog.get()) {
            mIsGiven = true;
            mTarget->setFocus();
        }
        return false;
    }

private:
    core::SmartPtr<Dialog> mDialog;
    core::SmartPtr<ui::Component> mTarget;
    core::SmartPtr<ui::Component> mOpener;
    bool mWasThere = false;
    bool mIsGiven = false;
};

void show(const core::SmartPtr<Dialog> &dialog, ui::Component &focus) {
    UIManager::getSingleton().getStageCallbacks().subscribeCallback(DialogFocus(dialog, focus));
    dialog->showModal(Dialog::BUTTON_CLOSE);
}

void open(const core::SmartPtr<Dialog> &dialog, const Answer &answer, Dialog::ButtonType focus) {
    dialog->ResultCallbacks::subscribeCallback([answer](Dialog *closed, DialogResult result) {
        answer->setText((std::string(closed->getTitle()) + ": " + describe(result)).c_str());
        return true;
    });
    show(dialog, *dialog->getButton(focus));
}

/// A dialog with a text.
struct Message {
    const char *button; ///< of the page, and the dialog's name
    const char *title;
    const char *text;
    unsigned int flags;
    Dialog::ButtonType focus;
};

constexpr Message MESSAGES[] = {
    {"info", "Saved", "Your game is kept in the first slot. You can leave whenever you like.",
     Dialog::FLAG_OK | Dialog::FLAG_INFO, Dialog::BUTTON_OK},
    {"question", "Leave the game", "Do you want to keep what you have done since you last saved?",
     Dialog::FLAG_YES | Dialog::FLAG_NO | Dialog::FLAG_CANCEL | Dialog::FLAG_QUESTION, Dialog::BUTTON_YES},
    {"warning", "Delete the slot", "The slot and all that is in it will be gone for good. There is no way back.",
     Dialog::FLAG_OK | Dialog::FLAG_CANCEL | Dialog::FLAG_CLOSE | Dialog::FLAG_WARNING, Dialog::BUTTON_CANCEL},
    {"error", "No connection", "The server did not answer. Try again in a minute.",
     Dialog::FLAG_OK | Dialog::FLAG_CLOSE | Dialog::FLAG_ERROR, Dialog::BUTTON_OK},
};

/// The form as the body, whose dialog the function makes of it; tells what was entered, too.
template <class MakeDialog>
void openForm(Gallery &gallery, const Answer &answer, MakeDialog makeDialog) {
    const core::SmartPtr<ui::Component> body(ui::UIComponentFactory::getSingleton().newInstance(FORM));
    const PageTools parts(gallery, *body);
    const core::SmartPtr<TextField> name(&parts.find<TextField>("name"));
    const core::SmartPtr<Selector> slot(&parts.find<Selector>("slot"));
    const core::SmartPtr<Dialog> dialog(makeDialog(body.get()));
    dialog->ResultCallbacks::subscribeCallback([answer, name, slot](Dialog *closed, DialogResult result) {
        std::string text = std::string(closed->getTitle()) + ": " + describe(result);
        if (result == ui::DIALOG_ACCEPTED)
            text += std::string(", \"") + name->getText() + "\", " + slot->getItemText(slot->getSelectedIndex());
        answer->setText(text.c_str());
        return true;
    });
    show(dialog, *name);
}

} // namespace

void connectDialogs(const PageTools &tools) {
    Gallery &gallery = tools.getGallery();
    const Answer answer(&tools.find<Label>("answer/text"));
    for (const Message &message : MESSAGES) {
        onClick(tools.find<Button>(message.button), [&message, answer] {
            const core::SmartPtr<Dialog> dialog(
                Dialog::newDialog(message.button, message.title, message.text, message.flags));
            open(dialog, answer, message.focus);
        });
    }
    onClick(tools.find<Button>("form"), [&gallery, answer] {
        openForm(gallery, answer, [](ui::Component *body) {
            return Dialog::newDialog("form", "Save the game", body,
                                     Dialog::FLAG_OK | Dialog::FLAG_CANCEL | Dialog::FLAG_CLOSE);
        });
    });
    onClick(tools.find<Button>("banner"), [answer] {
        const core::SmartPtr<Dialog> dialog(
            Dialog::newDialog(BANNER, "banner", "The bridge is out", "Nobody gets across before the spring.",
                              Dialog::FLAG_YES | Dialog::FLAG_NO | Dialog::FLAG_WARNING));
        dialog->setButtonText(Dialog::BUTTON_YES, "Turn back");
        dialog->setButtonText(Dialog::BUTTON_NO, "Swim");
        open(dialog, answer, Dialog::BUTTON_YES);
    });
    onClick(tools.find<Button>("banner-form"), [&gallery, answer] {
        openForm(gallery, answer, [](ui::Component *body) {
            return Dialog::newDialog(BANNER, "banner-form", "Name the ship", body,
                                     Dialog::FLAG_OK | Dialog::FLAG_CLOSE);
        });
    });
    onClick(tools.find<Button>("two"), [answer] {
        for (const Message *message : {&MESSAGES[0], &MESSAGES[1]}) {
            const core::SmartPtr<Dialog> dialog(
                Dialog::newDialog(message->button, message->title, message->text, message->flags));
            open(dialog, answer, message->focus);
        }
    });
}

} // namespace gallery
