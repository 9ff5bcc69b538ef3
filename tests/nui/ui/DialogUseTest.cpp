// Dialogs in rough use: taken off the stage by others, shown from their own answer, without input or a skin.
#include "nui/ui/DialogFixture.h"

#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIEventHandler.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"

namespace nurel::ui {

using components::Button;
using components::Label;
using components::Panel;
using test::DialogTest;

// --- Taken off the stage

TEST_F(DialogTest, ADialogThatTheStageWasClearedOfCanStillBeAnswered) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> future = open(*dialog);
    manager().clearWidgets();
    frame();
    EXPECT_EQ(Dialog::getCurrentModal(), dialog.get());
    dialog->close(DIALOG_DECLINED);
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
    settle();
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_EQ(manager().getWidgetCount(), 0U);
}

TEST_F(DialogTest, ADialogThatIsRemovedWhileItOpensGivesInputBack) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    frame();
    manager().removeWidget(dialog.get());
    settle();
    EXPECT_TRUE(manager().isEnabled());
    dialog->close(DIALOG_ACCEPTED);
    settle();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, ADialogUnderAnotherMayBeAnsweredFirst) {
    const core::SmartPtr<Dialog> below = ask();
    const core::SmartPtr<Dialog> above = ask(Dialog::FLAG_OK, "above");
    const core::Future<DialogResult> ofBelow = open(*below);
    const core::Future<DialogResult> ofAbove = open(*above);
    below->close(DIALOG_DECLINED);
    EXPECT_EQ(ofBelow.get(), DIALOG_DECLINED);
    EXPECT_FALSE(ofAbove.isSet());
    EXPECT_EQ(Dialog::getCurrentModal(), above.get());
    settle();
    EXPECT_FALSE(manager().hasWidget(below.get()));
    EXPECT_TRUE(manager().hasWidget(above.get()));
    click(part<Component>(above, "bOK"));
    EXPECT_EQ(ofAbove.get(), DIALOG_ACCEPTED);
}

// --- The keyboard

TEST_F(DialogTest, TabPassesByAnswersThatAreNotShown) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_YES | Dialog::FLAG_NO | Dialog::FLAG_CANCEL);
    open(*dialog);
    settle();
    part<Component>(dialog, "bCancel").setFocus();
    manager().nextTabStop(UIManager::FORWARD);
    EXPECT_EQ(manager().getFocus(), &part<Component>(dialog, "bYes"));
    manager().prevTabStop();
    EXPECT_EQ(manager().getFocus(), &part<Component>(dialog, "bCancel"));
}

// --- In the middle of an answer

TEST_F(DialogTest, ADialogThatItsOwnAnswerShowsAgainWaitsForANewAnswer) {
    const core::SmartPtr<Dialog> dialog = ask();
    std::vector<core::Future<DialogResult>> futures;
    dialog->Dialog::ResultCallbacks::subscribeCallback([&](Dialog *closed, DialogResult) {
        futures.push_back(closed->showModal(Dialog::BUTTON_CLOSE));
        return true;
    });
    const core::Future<DialogResult> first = open(*dialog);
    dialog->close(DIALOG_DECLINED);
    EXPECT_EQ(first.get(), DIALOG_DECLINED);
    ASSERT_EQ(futures.size(), 1U);
    EXPECT_FALSE(futures[0].isSet());
    settle();
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(manager().isEnabled());
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_EQ(futures[0].get(), DIALOG_ACCEPTED);
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 0U);
}

TEST_F(DialogTest, AnAnswerMayChangeFlagsAndTexts) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_YES | Dialog::FLAG_NO);
    dialog->Dialog::ResultCallbacks::subscribeCallback([](Dialog *closed, DialogResult) {
        closed->setFlags(Dialog::FLAG_ERROR | Dialog::FLAG_OK);
        closed->setTitle("Closing");
        return false;
    });
    open(*dialog);
    click(part<Component>(dialog, "bYes"));
    settle();
    EXPECT_STREQ(dialog->getTitle(), "Closing");
    EXPECT_FALSE(dialog->getButton(Dialog::BUTTON_YES)->isSelfVisible());
}

TEST_F(DialogTest, AnAnswerMayForgetAllDialogs) {
    const core::SmartPtr<Dialog> below = ask();
    const core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> ofBelow = open(*below);
    dialog->Dialog::ResultCallbacks::subscribeCallback([](Dialog *, DialogResult) {
        Dialog::shutdown();
        return false;
    });
    const core::Future<DialogResult> future = open(*dialog);
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_EQ(future.get(), DIALOG_ACCEPTED);
    EXPECT_EQ(ofBelow.get(), DIALOG_CANCELLED);
    settle();
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, AButtonThatIsDisabledDoesNotAnswer) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_NO);
    Component &no = part<Component>(dialog, "bNo");
    const core::Future<DialogResult> future = open(*dialog);
    no.setEnabled(false);
    const auto at = no.getWorldPosition();
    click(static_cast<int>(at.x), static_cast<int>(at.y));
    EXPECT_FALSE(future.isSet());
    no.setEnabled(true);
    moveTo(static_cast<int>(at.x), static_cast<int>(at.y));
    press();
    no.setEnabled(false); // between press and release
    release();
    EXPECT_FALSE(future.isSet());
    EXPECT_EQ(Dialog::getCurrentModal(), dialog.get());
}

TEST_F(DialogTest, AWindowThatIsMovedToAnotherDialogStillAnswersItsOwn) {
    const core::SmartPtr<Dialog> first = ask(Dialog::FLAG_OK, "first");
    const core::SmartPtr<Dialog> second = ask(Dialog::FLAG_NO, "second");
    const core::SmartPtr<Container> window(first->getWindow());
    first->removeChild(window.get());
    second->clearChildren();
    second->addChild(window.get());
    const core::Future<DialogResult> ofFirst = open(*first);
    const core::Future<DialogResult> ofSecond = open(*second);
    EXPECT_EQ(second->getFlags(), Dialog::FLAG_OK);
    click(part<Component>(second, "bOK"));
    EXPECT_EQ(ofFirst.get(), DIALOG_ACCEPTED);
    EXPECT_FALSE(ofSecond.isSet());
    settle();
    EXPECT_TRUE(manager().isEnabled());
}

// --- An animation that is open

TEST_F(DialogTest, WhatIsMadeWhileAnAnimationIsOpenIsReadyWhenItHasRun) {
    manager().beginAnimation();
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_YES);
    EXPECT_EQ(dialog->getComponentSize().relative, Vector2(1, 1));
    manager().getCurrentAnimation()->setDuration(0.1F);
    manager().commitAnimation();
    settle();
    EXPECT_TRUE(dialog->getButton(Dialog::BUTTON_YES)->isSelfVisible());
    EXPECT_FALSE(dialog->getButton(Dialog::BUTTON_NO)->isSelfVisible());
}

TEST_F(DialogTest, ADialogIsShownAndAnsweredFromTheEndOfAnAnimation) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    core::SmartPtr<Dialog> dialog;
    core::Future<DialogResult> future;
    const auto whenAnimated = [&](float scale, const std::function<void()> &act) {
        AnimationContext *context = manager().beginAnimation();
        context->setDuration(0.1F);
        panel->setScale(Vector2(scale, scale));
        context->subscribeCallback([act](AnimationContext *, const AnimationEvent &event) {
            if (event.getType() == AnimationEvent::FINISHED)
                act();
            return false;
        });
        manager().commitAnimation();
        settle();
        settle();
    };
    whenAnimated(2, [&] {
        dialog = ask();
        future = dialog->showModal(Dialog::BUTTON_CLOSE);
    });
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(1, 1));
    EXPECT_FALSE(future.isSet());
    whenAnimated(3, [&] { dialog->close(DIALOG_DECLINED); });
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(manager().isEnabled());
}

// --- Texts of any kind

TEST_F(DialogTest, TextsMayBeMalformedOrVeryLong) {
    const std::string lengthy(50000, 'x');
    const std::string texts[] = {"", "\xff\xfe%d\xc3", "%s%n", "${unknown}", lengthy};
    for (const std::string &text : texts) {
        const core::SmartPtr<Dialog> dialog =
            Dialog::newDialog(text.c_str(), text.c_str(), text.c_str(), Dialog::FLAG_OK);
        dialog->setButtonText(Dialog::BUTTON_OK, text.c_str());
        open(*dialog);
        EXPECT_EQ(dialog->getTitle(), text);
        EXPECT_EQ(part<Label>(dialog, "lText").getText(), text);
        EXPECT_EQ(dialog->getButtonText(Dialog::BUTTON_OK), text);
        dialog->close(DIALOG_ACCEPTED);
        settle();
    }
}

// --- What opening costs, and how much room there is

TEST_F(DialogTest, OpeningADialogFromATemplateThatWasReadReadsNoFile) {
    open(*ask());
    const int opened = mFiles.mOpened;
    open(*ask(Dialog::FLAG_YES | Dialog::FLAG_ERROR));
    open(*form(Dialog::FLAG_NO, new Panel("body")));
    EXPECT_EQ(mFiles.mOpened, opened);
}

TEST_F(DialogTest, AWindowLargerThanTheStageIsScrolledToItsAnswers) {
    addTemplates("", R"("size":[400,900])");
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_NO);
    Container *window = dialog->getWindow();
    part<Component>(dialog, "pButtons").setAnchor(Component::ANCHOR_BOTTOM_CENTER);
    const core::Future<DialogResult> future = open(*dialog);
    EXPECT_EQ(dialog->getWindow(), window) << "and not the scroll bar";
    Component &no = part<Component>(dialog, "bNo");
    EXPECT_GT(no.getWorldPosition().y, 600);
    dialog->setScrollOffset(Vector2(0, -150));
    settle();
    EXPECT_LT(no.getWorldPosition().y, 600);
    click(static_cast<int>(no.getWorldPosition().x), static_cast<int>(no.getWorldPosition().y));
    ASSERT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
}

// --- Without what it usually has

TEST_F(DialogTest, WithoutASkinTheDialogIsNotPlacedAndCanBeAnswered) {
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    const core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> future = dialog->showModal(Dialog::BUTTON_OK);
    EXPECT_NE(messageOf([] { manager().updateEvents(); }), "nothing was raised");
    dialog->close(DIALOG_DECLINED);
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 0U);
    EXPECT_TRUE(manager().isEnabled());
}

namespace {

class DialogWithoutInputTest : public test::ManagerTest {
public:
    static EngineConfig withoutInput() {
        EngineConfig config = ManagerTest::config();
        config.input = false;
        return config;
    }

    DialogWithoutInputTest() : ManagerTest(withoutInput()) {}
};

} // namespace

TEST_F(DialogWithoutInputTest, ADialogOpensAndClosesAndItsControlsBearIt) {
    const core::SmartPtr<Panel> prototype(new Panel("window"));
    for (const char *name : {"pTitle", "pBody", "pButtons", "bClose"})
        prototype->addChild(new Panel(name));
    for (const char *name : {"bOK", "bYes", "bNo", "bCancel"})
        prototype->addChild(new Button(name));
    prototype->addChild(new Label("lTitle"));
    UIComponentFactory::getSingleton().registerTemplate("dialog", prototype.get());
    const core::SmartPtr<Panel> body(new Panel("body"));
    body->addChild(new components::Slider("slider"));
    body->addChild(new components::Selector("selector"));
    body->addChild(new components::Progress("progress"));
    const core::SmartPtr<Dialog> dialog(Dialog::newDialog("n", "T", body.get(), Dialog::FLAG_OK));
    const core::Future<DialogResult> future = dialog->showModal(Dialog::BUTTON_OK);
    frame();
    advance(0.25);
    frame();
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    dialog->close(DIALOG_ACCEPTED);
    frame();
    advance(0.25);
    frame();
    frame();
    EXPECT_EQ(future.get(), DIALOG_ACCEPTED);
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(manager().isEnabled());
}

} // namespace nurel::ui
