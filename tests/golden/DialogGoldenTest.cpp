// Dialogs over a screen, in the starter looks and without one.
#include "LookFixture.h"

#include "nui/ui/Dialog.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"

namespace golden {

using nurel::math::Vector2;
using nurel::ui::Dialog;
using nurel::ui::Widget;
using nurel::ui::components::Label;
using nurel::ui::components::Panel;

namespace {

class DialogGolden : public LookFixture {
protected:
    void SetUp() override {
        LookFixture::SetUp();
        nurel::ui::UIComponentFactory::getSingleton().setLoadResolver(&mTemplates);
    }

    void TearDown() override {
        mDialog = nullptr;
        LookFixture::TearDown();
    }

    void showScreen() {
        const core::SmartPtr<Widget> widget(new Widget("screen"));
        const core::SmartPtr<Panel> card(new Panel("card"));
        card->addClass("card");
        card->setPositionData(Vector2(10, 10), Vector2::ZERO, Vector2(200, 300), Vector2::ZERO, Panel::ANCHOR_TOP_LEFT);
        widget->addChild(card.get());
        show(widget);
    }

    void open(Dialog *dialog) {
        mDialog = dialog;
        showScreen();
        dialog->showModal(Dialog::BUTTON_CLOSE);
        settle();
        engine().advance(0.3);
    }

private:
    nurel::vfs::DirectoryFileSystem mTemplates{DIALOGS};
    core::SmartPtr<Dialog> mDialog;
};

} // namespace

TEST_F(DialogGolden, ALightQuestion) {
    useSheet("light.css");
    open(Dialog::newDialog(
        "quit", "Leave the game", "All that you have done since you saved the game will be lost. Leave all the same?",
        Dialog::FLAG_YES | Dialog::FLAG_NO | Dialog::FLAG_CANCEL | Dialog::FLAG_CLOSE | Dialog::FLAG_QUESTION));
    expectPicture("dialog-light");
}

TEST_F(DialogGolden, ADarkErrorWithATitleIcon) {
    useSheet("dark.css");
    Dialog *dialog = Dialog::newDialog("failed", "No connection", "The server does not answer.",
                                       Dialog::FLAG_OK | Dialog::FLAG_ERROR);
    dialog->setTitleIconClass("icon");
    dialog->setTitleIconClass("icon-gear");
    open(dialog);
    expectPicture("dialog-dark");
}

TEST_F(DialogGolden, ALightWarningWithTheFocusOnAButton) {
    useSheet("light.css");
    open(Dialog::newDialog("low", "The disk is nearly full", "Saving may fail.",
                           Dialog::FLAG_OK | Dialog::FLAG_CANCEL | Dialog::FLAG_WARNING));
    find("bCancel").setFocus();
    expectPicture("dialog-warning");
}

TEST_F(DialogGolden, ADarkWordOfInformation) {
    useSheet("dark.css");
    open(Dialog::newDialog("done", "Saved", "Your game is safe.",
                           Dialog::FLAG_OK | Dialog::FLAG_CLOSE | Dialog::FLAG_INFO));
    addState("bOK", HOVER);
    expectPicture("dialog-information");
}

TEST_F(DialogGolden, ABodyThatIsTooHighScrolls) {
    useSheet("light.css");
    const core::SmartPtr<Panel> body(new Panel("body"));
    body->setSize(Vector2(300, 400));
    body->addClass("well");
    const core::SmartPtr<Label> label(new Label("words"));
    label->setText("As high as it likes");
    label->setSize(Vector2(200, 20));
    label->setAnchor(Label::ANCHOR_TOP_LEFT);
    body->addChild(label.get());
    open(Dialog::newDialog("form", "A form", body.get(), Dialog::FLAG_OK | Dialog::FLAG_CANCEL));
    expectPicture("dialog-body");
}

} // namespace golden
