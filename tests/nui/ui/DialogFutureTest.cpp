#include "nui/ui/DialogFixture.h"

#include "foundation/core/Event.h"
#include "nmain/vfs/DirectoryFileSystem.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"

#include <atomic>
#include <thread>

namespace nurel::ui {

using components::Panel;
using test::DialogTest;

namespace {

/// Waits for a future on a thread of its own.
class Waiter {
public:
    explicit Waiter(const core::Future<DialogResult> &future) : mThread([this, future] { mResult = future.get(); }) {}
    ~Waiter() { join(); }
    Waiter(const Waiter &) = delete;
    Waiter &operator=(const Waiter &) = delete;

    int join() {
        if (mThread.joinable())
            mThread.join();
        return mResult;
    }

private:
    std::atomic<int> mResult{-1};
    std::thread mThread;
};

} // namespace

// --- Waiting

TEST_F(DialogTest, AnotherThreadWaitsForTheAnswer) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_YES | Dialog::FLAG_NO);
    Waiter waiter(dialog->showModal(Dialog::BUTTON_YES));
    settle();
    click(part<Component>(dialog, "bNo"));
    EXPECT_EQ(waiter.join(), 1);
    settle();
}

TEST_F(DialogTest, AnotherThreadAsksForTheCurrentDialogWhileDialogsComeAndGo) {
    std::atomic<bool> stop{false};
    std::atomic<int> seen{0};
    std::thread asker([&] {
        while (!stop) {
            if (Dialog::getCurrentModal())
                ++seen;
            std::this_thread::yield();
        }
    });
    for (int i = 0; i < 20 || seen == 0; ++i) {
        const core::SmartPtr<Dialog> dialog = ask();
        Waiter waiter(dialog->showModal(Dialog::BUTTON_CLOSE));
        frame();
        dialog->close(DIALOG_DECLINED);
        EXPECT_EQ(waiter.join(), 1);
        settle();
    }
    stop = true;
    asker.join();
}

TEST_F(DialogTest, ACallbackMayWaitForAThreadThatAsksForTheCurrentDialog) {
    const core::SmartPtr<Dialog> below = ask();
    const core::SmartPtr<Dialog> dialog = ask();
    open(*below);
    Dialog *current = nullptr;
    dialog->Dialog::ResultCallbacks::subscribeCallback([&current](Dialog *, DialogResult) {
        std::thread([&current] { current = Dialog::getCurrentModal(); }).join();
        return true;
    });
    open(*dialog);
    dialog->close(DIALOG_ACCEPTED);
    EXPECT_EQ(current, below.get());
}

// --- No answer

TEST_F(DialogTest, ADialogThatDiesUnansweredCountsAsCancelled) {
    core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> future = open(*dialog);
    Waiter waiter(future);
    manager().clearWidgets();
    frame();
    Dialog::shutdown();
    dialog = nullptr;
    EXPECT_EQ(waiter.join(), 2);
}

TEST_F(DialogTest, TheEndOfTheManagerAnswersEveryDialog) {
    const core::SmartPtr<Dialog> held = ask();
    const core::Future<DialogResult> first = held->showModal(Dialog::BUTTON_CLOSE);
    const core::Future<DialogResult> second = ask()->showModal(Dialog::BUTTON_CLOSE);
    std::vector<int> answers;
    note(*held, answers);
    frame();
    UIManager::shutdown();
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    EXPECT_EQ(first.get(), DIALOG_CANCELLED);
    EXPECT_EQ(second.get(), DIALOG_CANCELLED);
    EXPECT_TRUE(answers.empty());
    held->close(DIALOG_ACCEPTED);
    EXPECT_TRUE(answers.empty());
}

TEST_F(DialogTest, AManagerThatEndsInTheMiddleOfAnAnimationLeavesNoCountBehind) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->showModal(Dialog::BUTTON_CLOSE);
    frame();
    UIManager::shutdown();
    SkinManager::getSingleton().addSkin(mSkin.get());
    SkinManager::getSingleton().setDefaultSkin(mSkin.get());
    EXPECT_TRUE(manager().isEnabled());
    open(*dialog);
    EXPECT_TRUE(manager().isEnabled());
    EXPECT_TRUE(manager().hasWidget(dialog.get()));
}

TEST_F(DialogTest, ShutdownInTheMiddleOfAnAnimationGivesInputBackWhenItEnds) {
    const core::SmartPtr<Dialog> dialog = ask();
    const core::Future<DialogResult> future = dialog->showModal(Dialog::BUTTON_CLOSE);
    frame();
    EXPECT_FALSE(manager().isEnabled());
    Dialog::shutdown();
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    EXPECT_EQ(future.get(), DIALOG_CANCELLED);
    EXPECT_TRUE(manager().hasWidget(dialog.get())) << "the widget stays";
    settle();
    EXPECT_TRUE(manager().isEnabled());
    const core::SmartPtr<Dialog> next = ask();
    next->showModal(Dialog::BUTTON_CLOSE);
    frame();
    EXPECT_FALSE(manager().isEnabled());
    settle();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, AnAnimationFromBeforeAShutdownDoesNotEndTheCountOfALaterOne) {
    const core::SmartPtr<Dialog> first = ask();
    const core::SmartPtr<Dialog> second = ask();
    first->showModal(Dialog::BUTTON_CLOSE);
    frame();
    Dialog::shutdown();
    advance(0.1);
    second->showModal(Dialog::BUTTON_CLOSE);
    frame();
    advance(0.1);
    frame();
    EXPECT_FALSE(manager().isEnabled());
    advance(0.1);
    frame();
    EXPECT_TRUE(manager().isEnabled());
}

TEST_F(DialogTest, ShutdownOfNothingIsHarmless) {
    Dialog::shutdown();
    Dialog::shutdown();
    UIManager::shutdown();
    UIManager::shutdown();
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
}

TEST_F(DialogTest, AListenerThatShowsADialogWhileTheManagerEndsLeavesNothingBehind) {
    const core::SmartPtr<Widget> widget = addWidget();
    const core::SmartPtr<Panel> panel = addPanel(*widget, "p", 0, 0, 100, 100);
    panel->setTabStop(1);
    frame();
    panel->setFocus();
    const core::SmartPtr<Dialog> dialog = ask();
    std::vector<core::Future<DialogResult>> futures;
    panel->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &event) {
        if (event.getAction() == FocusEvent::FOCUS_LOST)
            futures.push_back(dialog->showModal(Dialog::BUTTON_CLOSE));
        return false;
    });
    widget->removeChild(panel.get());
    ASSERT_EQ(futures.size(), 1U);
    UIManager::shutdown();
    EXPECT_EQ(futures[0].get(), DIALOG_CANCELLED);
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
}

// --- The templates that come along

TEST_F(DialogTest, TheReadyTemplatesHaveEveryPart) {
    vfs::DirectoryFileSystem files("assets/dialogs");
    factory().setLoadResolver(&files);
    const core::SmartPtr<Dialog> text = Dialog::newDialog("n", "Title", "Text", 0x21f);
    const core::SmartPtr<Dialog> custom = Dialog::newDialog("n", "Title", new Panel("b"), 0x20f);
    factory().clearLoadResolver();
    EXPECT_TRUE(text->getWindow()->hasClass("dialog"));
    for (const core::SmartPtr<Dialog> &dialog : {text, custom}) {
        for (const char *name : {"bOK", "bYes", "bNo", "bCancel", "bClose"})
            EXPECT_TRUE(find<components::Button>(*dialog, name)) << name;
        EXPECT_NE(dialog->getTitleIcon(), nullptr);
        EXPECT_NE(dialog->getBody(), nullptr);
        EXPECT_TRUE(find<Component>(*dialog, "pTitle"));
    }
    EXPECT_NE(text->getIcon(), nullptr);
}

TEST_F(DialogTest, TheReadyWindowIsAsHighAsItsText) {
    vfs::DirectoryFileSystem files("assets/dialogs");
    factory().setLoadResolver(&files);
    const core::SmartPtr<Dialog> brief = Dialog::newDialog("n", "T", "Leave?", 0x2a);
    std::string words;
    for (int i = 0; i < 60; ++i)
        words += "a word and ";
    const core::SmartPtr<Dialog> lengthy = Dialog::newDialog("n", "T", words.c_str(), 0x2a);
    factory().clearLoadResolver();
    open(*brief);
    open(*lengthy);
    EXPECT_EQ(brief->getWindow()->getSize().x, 472);
    EXPECT_EQ(lengthy->getWindow()->getSize().x, 472);
    EXPECT_GT(brief->getWindow()->getSize().y, 80);
    EXPECT_GT(lengthy->getWindow()->getSize().y, brief->getWindow()->getSize().y + 60);
    const Component &no = part<Component>(brief, "bNo");
    const Component &window = *brief->getWindow();
    EXPECT_NEAR(no.getMaxBound().x, window.getMaxBound().x, 1) << "the answers stand at the right";
    EXPECT_LE(no.getMaxBound().y, window.getMaxBound().y + 1);
    EXPECT_LT(part<Component>(brief, "lText").getMaxBound().y, no.getMinBound().y + 1);
}

} // namespace nurel::ui
