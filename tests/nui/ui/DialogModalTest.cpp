#include "nui/ui/DialogFixture.h"

#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIEventHandler.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Panel.h"

#include <stdexcept>

namespace nurel::ui {

using components::Button;
using components::Panel;
using test::DialogTest;

namespace {

using Answers = std::vector<int>;

constexpr int ESCAPE = 0x01;

} // namespace

// --- Opening

TEST_F(DialogTest, AShownDialogIsCurrentAtOnceAndOnTheStageWithTheNextEvents) {
    const core::SmartPtr<Dialog> dialog = ask();
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    const core::Future<DialogResult> future = dialog->showModal(Dialog::BUTTON_CLOSE);
    EXPECT_EQ(Dialog::getCurrentModal(), dialog.get());
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
    EXPECT_FALSE(future.isSet());
    frame();
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
}

TEST_F(DialogTest, AShownDialogIsHeldUntilItIsClosed) {
    Dialog *dialog = ask().release();
    dialog->showModal(Dialog::BUTTON_OK);
    settle();
    EXPECT_EQ(Dialog::getCurrentModal(), dialog);
    EXPECT_STREQ(dialog->getTitle(), "Title");
}

TEST_F(DialogTest, OpeningGrowsTheWindowWithAnOvershootAndDarkensTheStage) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    EXPECT_EQ(dialog->getOpacity(), 0);
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(0.1F, 0.1F));
    frame();
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(0.1F, 0.1F));
    advance(0.1);
    frame();
    EXPECT_NEAR(dialog->getWindow()->getScale().x, 0.7F, 1e-4F);
    EXPECT_NEAR(dialog->getWindow()->getScale().y, 0.7F, 1e-4F);
    EXPECT_NEAR(dialog->getOpacity(), 0.35F, 1e-4F);
    EXPECT_EQ(dialog->getWindow()->getOpacity(), 1) << "the window stays opaque";
    advance(0.08);
    frame();
    EXPECT_GT(dialog->getWindow()->getScale().x, 1);
    advance(0.02);
    frame();
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(1, 1));
    EXPECT_FLOAT_EQ(dialog->getOpacity(), 0.7F);
}

TEST_F(DialogTest, InputIsOffWhileADialogOpens) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    EXPECT_TRUE(manager().isEnabled()) << "until the animation has begun";
    frame();
    EXPECT_FALSE(manager().isEnabled());
    advance(0.19);
    frame();
    EXPECT_FALSE(manager().isEnabled());
    advance(0.01);
    frame();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, OfTwoDialogsInARowTheSecondIsCurrentAndInputWaitsForBoth) {
    const core::SmartPtr<Dialog> first = ask();
    const core::SmartPtr<Dialog> second = ask();
    first->showModal(Dialog::BUTTON_CLOSE);
    frame();
    advance(0.1);
    second->showModal(Dialog::BUTTON_CLOSE);
    EXPECT_EQ(Dialog::getCurrentModal(), second.get());
    frame();
    advance(0.1);
    frame();
    EXPECT_EQ(first->getWindow()->getScale(), Vector2(1, 1));
    EXPECT_FALSE(manager().isEnabled());
    advance(0.1);
    frame();
    EXPECT_TRUE(manager().isEnabled());
    second->close(DIALOG_ACCEPTED);
    EXPECT_EQ(Dialog::getCurrentModal(), first.get());
    first->close(DIALOG_ACCEPTED);
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    frame();
    EXPECT_FALSE(manager().isEnabled());
    advance(0.2);
    frame();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, ADialogThatIsClosedWhileItOpensGivesInputBack) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    frame();
    advance(0.1);
    frame();
    dialog->close(DIALOG_ACCEPTED);
    settle();
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, ADialogThatIsClosedAtOnceIsTakenDown) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    dialog->close(DIALOG_ACCEPTED);
    settle();
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, ShowingADialogDropsTheAnimationThatIsOpenAndStartsSmallAtOnce) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::SmartPtr<Panel> panel(new Panel("p"));
    manager().beginAnimation();
    panel->setPosition(Vector2(50, 50), Vector2(0, 0));
    dialog->showModal(Dialog::BUTTON_CLOSE);
    EXPECT_EQ(dialog->getOpacity(), 0);
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(0.1F, 0.1F));
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
    settle();
    EXPECT_EQ(panel->getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(1, 1));
}

TEST_F(DialogTest, AnotherAnimationDoesNotTouchInput) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    manager().beginAnimation();
    panel->setScale(Vector2(2, 2));
    manager().commitAnimation();
    frame();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, ADialogWithoutAWindowOpensAndCloses) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->clearChildren();
    dialog->showModal(Dialog::BUTTON_OK);
    frame();
    EXPECT_TRUE(manager().isEnabled()) << "no window, nothing to count";
    settle();
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    dialog->close(DIALOG_ACCEPTED);
    settle();
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, AWindowThatIsExchangedWhileItOpensGivesInputBack) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    frame();
    dialog->clearChildren();
    dialog->addChild(new Panel("other"));
    settle();
    EXPECT_TRUE(manager().isEnabled());
}

// --- Focus

TEST_F(DialogTest, TheNamedButtonGetsTheFocus) {
    const std::pair<int, const char *> rows[] = {{0, "bOK"}, {1, "bOK"},     {2, "bYes"},
                                                 {3, "bNo"}, {4, "bCancel"}, {17, "bOK"}};
    for (const auto &[type, name] : rows) {
        const core::SmartPtr<Dialog> dialog = ask(0x0f);
        dialog->showModal(static_cast<Dialog::ButtonType>(type));
        ASSERT_NE(manager().getFocus(), nullptr) << type;
        EXPECT_STREQ(manager().getFocus()->getName(), name);
        EXPECT_EQ(manager().getFocus(), dialog->getButton(static_cast<Dialog::ButtonType>(type)));
    }
}

TEST_F(DialogTest, TheCloseButtonGetsNoFocusAndNoOtherDoes) {
    const core::SmartPtr<Dialog> dialog = ask(0x20f);
    dialog->showModal(Dialog::BUTTON_CLOSE);
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(DialogTest, AHiddenOrMissingButtonGetsNoFocus) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_OK);
    dialog->showModal(Dialog::BUTTON_YES);
    EXPECT_EQ(manager().getFocus(), nullptr);
    const core::SmartPtr<Dialog> other = ask(Dialog::FLAG_OK);
    Component &ok = part<Component>(other, "bOK");
    ok.getParent()->removeChild(&ok);
    EXPECT_FALSE(other->showModal(Dialog::BUTTON_OK).isSet());
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(DialogTest, TheFocusIsLostAgainWhenTheDialogIsPlacedUnderTheCursor) {
    const core::SmartPtr<Dialog> dialog = ask();
    point(100, 100);
    dialog->showModal(Dialog::BUTTON_OK);
    EXPECT_NE(manager().getFocus(), nullptr);
    manager().updateEvents();
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(DialogTest, TheFocusIsLostAgainWhenTheOpeningAnimationBegins) {
    const core::SmartPtr<Dialog> dialog = ask();
    point(-100, -100);
    dialog->showModal(Dialog::BUTTON_OK);
    manager().updateEvents();
    EXPECT_NE(manager().getFocus(), nullptr);
    manager().update();
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(DialogTest, AListenerOfTheFocusMayAnswer) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->getButton(Dialog::BUTTON_OK)->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        dialog->close(DIALOG_DECLINED);
        return true;
    });
    const core::Future<DialogResult> future = dialog->showModal(Dialog::BUTTON_OK);
    ASSERT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
}

// --- Modal

TEST_F(DialogTest, NothingUnderADialogGetsTheMouse) {
    const core::SmartPtr<Widget> below = addWidget("below");
    const core::SmartPtr<Panel> target = addPanel(*below, "target", 0, 0, 800, 600);
    frame();
    const core::SmartPtr<Dialog> dialog = ask();
    open(*dialog);
    int clicks = 0;
    target->ClickCallbacks::subscribeCallback([&clicks](UIEventHandler *, const ClickEvent &) {
        ++clicks;
        return false;
    });
    target->enableEvents(UIEvent::ET_CLICK_EVENT);
    click(5, 5);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(manager().getWidget(manager().getComponentAtCursor()), dialog.get());
    dialog->close(DIALOG_ACCEPTED);
    settle();
    click(6, 6);
    EXPECT_EQ(clicks, 1);
}

// --- Answers

TEST_F(DialogTest, EachButtonAnswers) {
    const std::pair<const char *, int> rows[] = {{"bOK", 0}, {"bYes", 0}, {"bNo", 1}, {"bCancel", 2}, {"bClose", 2}};
    for (const auto &[name, result] : rows) {
        for (const bool isText : {true, false}) {
            const core::SmartPtr<Dialog> dialog = isText ? ask(0x20f) : form(0x20f);
            Answers answers;
            note(*dialog, answers);
            const core::Future<DialogResult> future = open(*dialog);
            Component &button = part<Component>(dialog, name);
            button.enableEvents(UIEvent::ET_CLICK_EVENT);
            click(button);
            EXPECT_EQ(answers, Answers{result}) << name;
            ASSERT_TRUE(future.isSet());
            EXPECT_EQ(future.get(), result);
            settle();
        }
    }
}

TEST_F(DialogTest, AButtonIsClickedWithTheMouse) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_NO);
    Component &no = part<Component>(dialog, "bNo");
    const core::Future<DialogResult> future = open(*dialog);
    click(static_cast<int>(no.getWorldPosition().x), static_cast<int>(no.getWorldPosition().y));
    ASSERT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
}

TEST_F(DialogTest, TheSecondCloseDoesNothing) {
    const core::SmartPtr<Dialog> dialog = ask();
    Answers answers;
    note(*dialog, answers);
    const core::Future<DialogResult> future = open(*dialog);
    dialog->close(DIALOG_DECLINED);
    dialog->close(DIALOG_ACCEPTED);
    settle();
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_EQ(answers, Answers{1});
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
}

TEST_F(DialogTest, CloseDoesNothingToADialogThatIsNotShown) {
    const core::SmartPtr<Dialog> dialog = ask();
    Answers answers;
    note(*dialog, answers);
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(dialog->getOpacity(), 1);
    EXPECT_EQ(manager().getCurrentAnimation(), nullptr);
}

TEST_F(DialogTest, TheAnswerIsKnownWhileTheExitAnimationPlays) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> future = open(*dialog);
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_TRUE(future.isSet());
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    frame();
    EXPECT_FALSE(manager().isEnabled());
    advance(0.1);
    frame();
    EXPECT_NEAR(dialog->getWindow()->getScale().x, 0.7F, 1e-4F);
    EXPECT_NEAR(dialog->getOpacity(), 0.35F, 1e-4F);
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    advance(0.1);
    frame();
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(0.1F, 0.1F));
    EXPECT_EQ(dialog->getOpacity(), 0);
    EXPECT_TRUE(manager().isEnabled());
    frame();
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, ADialogThatNobodyHoldsGoesWithItsExit) {
    bool gone = false;
    class Witness : public Component::UserData {
    public:
        explicit Witness(bool &flag) : mFlag(flag) {}
        ~Witness() override { mFlag = true; }
        bool &mFlag;
    };
    Dialog *dialog = ask().release();
    dialog->setUserData(new Witness(gone));
    open(*dialog);
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_FALSE(gone);
    settle();
    EXPECT_TRUE(gone);
}

// --- Callbacks that do things

TEST_F(DialogTest, ACallbackMayCloseAgainAndShowAnother) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::SmartPtr<Dialog> next = ask();
    int calls = 0;
    dialog->Dialog::ResultCallbacks::subscribeCallback([&](Dialog *closed, DialogResult) {
        ++calls;
        EXPECT_EQ(Dialog::getCurrentModal(), nullptr) << "it is off the stack by now";
        closed->close(DIALOG_DECLINED);
        next->showModal(Dialog::BUTTON_OK);
        return false;
    });
    open(*dialog);
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(Dialog::getCurrentModal(), next.get());
    settle();
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(manager().hasWidget(next.get()));
}

TEST_F(DialogTest, ACallbackMayLetTheDialogGo) {
    core::SmartPtr<Dialog> dialog = ask();
    Dialog *raw = dialog.get();
    raw->Dialog::ResultCallbacks::subscribeCallback([&](Dialog *closed, DialogResult) {
        dialog = nullptr;
        manager().clearWidgets();
        manager().updateEvents();
        EXPECT_STREQ(closed->getTitle(), "Title");
        return false;
    });
    const core::Future<DialogResult> future = open(*raw);
    click(part<Component>(dialog, "bOK"));
    EXPECT_EQ(future.get(), DIALOG_ACCEPTED);
    settle();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, ACallbackMayEmptyTheDialog) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->Dialog::ResultCallbacks::subscribeCallback([](Dialog *closed, DialogResult) {
        closed->clearChildren();
        return false;
    });
    open(*dialog);
    click(part<Component>(dialog, "bOK"));
    settle();
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, ACallbackMayRemoveTheOthersAndTheFutureIsSetAllTheSame) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->Dialog::ResultCallbacks::subscribeCallback([](Dialog *closed, DialogResult) {
        closed->Dialog::ResultCallbacks::removeCallbacks();
        return false;
    });
    const core::Future<DialogResult> future = open(*dialog);
    dialog->close(DIALOG_DECLINED);
    ASSERT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
}

TEST_F(DialogTest, ACallbackThatFailsDoesNotKeepTheFutureWaiting) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->Dialog::ResultCallbacks::subscribeCallback(
        [](Dialog *, DialogResult) -> bool { throw std::runtime_error("failed"); });
    const core::Future<DialogResult> future = open(*dialog);
    EXPECT_THROW(dialog->close(DIALOG_DECLINED), std::runtime_error);
    ASSERT_TRUE(future.isSet());
    EXPECT_EQ(future.get(), DIALOG_DECLINED);
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    settle();
    EXPECT_FALSE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, ACallbackMayShutTheManagerDown) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->Dialog::ResultCallbacks::subscribeCallback([](Dialog *, DialogResult) {
        UIManager::shutdown();
        return false;
    });
    const core::Future<DialogResult> future = open(*dialog);
    click(part<Component>(dialog, "bOK"));
    EXPECT_EQ(future.get(), DIALOG_ACCEPTED);
}

TEST_F(DialogTest, AButtonThatOutlivesItsDialogAnswersNothing) {
    core::SmartPtr<Dialog> dialog = ask();
    const core::SmartPtr<Button> ok(&part<Button>(dialog, "bOK"));
    ok->getParent()->removeChild(ok.get());
    dialog = nullptr;
    click(*ok);
}

// --- Shown again

TEST_F(DialogTest, ADialogCanBeShownAgain) {
    const core::SmartPtr<Dialog> dialog = ask();
    Answers answers;
    note(*dialog, answers);
    const core::Future<DialogResult> first = open(*dialog);
    dialog->close(DIALOG_DECLINED);
    settle();
    const core::Future<DialogResult> second = open(*dialog);
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(dialog->getWindow()->hasView());
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_EQ(answers, (Answers{1, 0}));
    EXPECT_EQ(first.get(), DIALOG_DECLINED);
    EXPECT_EQ(second.get(), DIALOG_ACCEPTED);
}

TEST_F(DialogTest, ADialogThatIsShownAgainWhileItClosesStays) {
    const core::SmartPtr<Dialog> dialog = ask();
    open(*dialog);
    dialog->close(DIALOG_DECLINED);
    frame();
    advance(0.1);
    frame();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    settle();
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 1U);
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
    EXPECT_TRUE(dialog->hasView());
    EXPECT_EQ(dialog->getWindow()->getScale(), Vector2(1, 1));
    EXPECT_TRUE(manager().isEnabled());
    dialog->close(DIALOG_ACCEPTED);
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 0U);
}

TEST_F(DialogTest, ADialogThatIsShownTwiceIsShownOnce) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> first = dialog->showModal(Dialog::BUTTON_CLOSE);
    const core::Future<DialogResult> second = dialog->showModal(Dialog::BUTTON_CLOSE);
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 1U);
    dialog->close(DIALOG_DECLINED);
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    EXPECT_EQ(first.get(), DIALOG_DECLINED);
    EXPECT_EQ(second.get(), DIALOG_DECLINED);
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 0U);
}

// --- Keys

TEST_F(DialogTest, EscapeClosesWhatCanBeCancelledAndWhatHasNothingButOK) {
    const std::pair<unsigned int, bool> rows[] = {
        {0, false},    {0x01, true}, {0x02, false}, {0x03, false}, {0x04, true},  {0x08, false}, {0x0a, false},
        {0x09, false}, {0x0e, true}, {0x0f, true},  {0x200, true}, {0x20a, true}, {0x11, true},  {0x12, false},
    };
    for (const auto &[flags, closes] : rows) {
        const core::SmartPtr<Dialog> dialog = ask(flags);
        Answers answers;
        note(*dialog, answers);
        open(*dialog);
        key(ESCAPE);
        EXPECT_EQ(answers, closes ? Answers{2} : Answers{}) << flags;
        dialog->close(DIALOG_ACCEPTED);
        settle();
    }
}

TEST_F(DialogTest, OnlyThePressOfEscapeCloses) {
    const core::SmartPtr<Dialog> dialog = ask();
    Answers answers;
    note(*dialog, answers);
    open(*dialog);
    key(ESCAPE, false);
    key(0x1c);
    key(0);
    EXPECT_TRUE(answers.empty());
    key(ESCAPE);
    EXPECT_EQ(answers, Answers{2});
}

TEST_F(DialogTest, EscapeAimedAtAButtonClosesAndStillReachesIt) {
    const core::SmartPtr<Dialog> dialog = ask();
    Answers answers;
    note(*dialog, answers);
    open(*dialog);
    Component &ok = part<Component>(dialog, "bOK");
    ok.setFocus();
    int keys = 0;
    ok.KeyCallbacks::subscribeCallback([&keys](UIEventHandler *, const KeyEvent &) {
        ++keys;
        return false;
    });
    record();
    key(ESCAPE);
    EXPECT_EQ(answers, Answers{2});
    EXPECT_EQ(keys, 1);
    EXPECT_EQ(events(), Lines{"key:1+ bOK>bOK"});
}

TEST_F(DialogTest, ADialogKeepsKeysFromWhatIsUnderIt) {
    const core::SmartPtr<Widget> below = addWidget("below");
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_YES);
    open(*dialog);
    record();
    key(ESCAPE);
    EXPECT_EQ(events(), Lines{"key:1+ ask>ask"});
    EXPECT_EQ(Dialog::getCurrentModal(), dialog.get());
}

TEST_F(DialogTest, TheFilterReturnsTheTargetAsItIs) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::SmartPtr<Panel> panel(new Panel("p"));
    bool asked = false;
    dialog->FilterCallbacks::subscribeCallback([&asked](UIEventHandler *, const UIEvent &, UIEventHandler *&target) {
        asked = true;
        target = nullptr;
        return false;
    });
    EXPECT_EQ(dialog->filterEvent(KeyEvent(0x1c, true), panel.get()), panel.get());
    EXPECT_EQ(dialog->filterEvent(TextEvent("t"), panel.get()), panel.get());
    EXPECT_EQ(dialog->filterEvent(KeyEvent(0x1c, true), nullptr), nullptr);
    EXPECT_FALSE(asked);
}

TEST_F(DialogTest, ADialogMayGoWhileAKeyPasses) {
    core::SmartPtr<Dialog> dialog = ask();
    Dialog *raw = dialog.get();
    raw->Dialog::ResultCallbacks::subscribeCallback([&](Dialog *, DialogResult) {
        dialog = nullptr;
        manager().clearWidgets();
        manager().updateEvents();
        return false;
    });
    open(*raw);
    part<Component>(dialog, "bOK").setFocus();
    key(ESCAPE);
    settle();
    EXPECT_TRUE(manager().isEnabled());
}

} // namespace nurel::ui
