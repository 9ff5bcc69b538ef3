// The page of dialogs: what each button opens, how it is answered, and what happens around an open dialog.
#include "GalleryFixture.h"

#include "nui/ui/Dialog.h"
#include "nui/ui/KeyboardOverlay.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/TextField.h"

namespace {

using nurel::ui::Dialog;
using nurel::ui::UIManager;
using nurel::ui::components::Selector;
using nurel::ui::components::TextField;

class DialogPages : public test::GalleryFixture {
protected:
    DialogPages() { showPage("dialogs"); }

    void open(const std::string &button) {
        click(button);
        runFrames(ANIMATION_FRAMES);
    }

    void answer(const std::string &button) {
        click(button);
        runFrames(ANIMATION_FRAMES);
    }

    static std::string getAnswer() { return textOf("answer/text"); }

    static bool isOpen(const char *name) { return exists(std::string(name) + "/lTitle"); }
};

struct Case {
    const char *button;
    const char *title;
    const char *answer;
    const char *told;
};

constexpr Case CASES[] = {
    {"messages/info", "Saved", "bOK", "Saved: accepted"},
    {"messages/question", "Leave the game", "bYes", "Leave the game: accepted"},
    {"messages/question", "Leave the game", "bNo", "Leave the game: declined"},
    {"messages/question", "Leave the game", "bCancel", "Leave the game: cancelled"},
    {"messages/warning", "Delete the slot", "bOK", "Delete the slot: accepted"},
    {"messages/warning", "Delete the slot", "bClose", "Delete the slot: cancelled"},
    {"messages/error", "No connection", "bOK", "No connection: accepted"},
    {"others/banner", "The bridge is out", "bNo", "The bridge is out: declined"},
    {"others/form", "Save the game", "bCancel", "Save the game: cancelled"},
    {"others/banner-form", "Name the ship", "bClose", "Name the ship: cancelled"},
};

} // namespace

TEST_F(DialogPages, EveryDialogOpensAndTellsItsAnswer) {
    EXPECT_EQ(getAnswer(), "Nothing has been asked yet");
    const unsigned int before = UIManager::getSingleton().getWidgetCount();
    for (const Case &one : CASES) {
        SCOPED_TRACE(std::string(one.button) + " " + one.answer);
        open(one.button);
        ASSERT_NE(Dialog::getCurrentModal(), nullptr);
        EXPECT_STREQ(Dialog::getCurrentModal()->getTitle(), one.title);
        draw();
        answer(one.answer);
        EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
        EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), before);
        EXPECT_EQ(getAnswer(), one.told);
    }
}

TEST_F(DialogPages, EscapeCancelsWhatCanBeCancelled) {
    open("messages/info");
    tap(ESCAPE_KEY);
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(getAnswer(), "Saved: cancelled");
    open("others/banner");
    tap(ESCAPE_KEY);
    runFrames(ANIMATION_FRAMES);
    EXPECT_TRUE(isOpen("banner")) << "yes or no wants an answer";
    answer("bYes");
    EXPECT_EQ(getAnswer(), "The bridge is out: accepted");
}

TEST_F(DialogPages, ReturnAnswersWithTheButtonThatIsMeant) {
    open("messages/question");
    EXPECT_TRUE(hasFocus("question/bYes"));
    tap(RETURN_KEY);
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(getAnswer(), "Leave the game: accepted");
    open("messages/warning");
    tap(RETURN_KEY);
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(getAnswer(), "Delete the slot: cancelled") << "the answer that does no harm";
    EXPECT_TRUE(hasFocus("messages/warning")) << "where it was before";
    tap(RETURN_KEY);
    runFrames(ANIMATION_FRAMES);
    EXPECT_TRUE(isOpen("warning"));
}

TEST_F(DialogPages, NothingBehindADialogIsReached) {
    open("messages/info");
    moveTo("messages/error");
    press();
    release();
    click("pages/welcome");
    EXPECT_TRUE(isOpen("info"));
    EXPECT_EQ(textOf("main/title"), "Dialogs");
    answer("bOK");
    click("pages/welcome");
    EXPECT_EQ(textOf("main/title"), "Welcome");
}

TEST_F(DialogPages, TheFormTellsWhatWasEntered) {
    open("others/form");
    EXPECT_TRUE(hasFocus("fields/name"));
    type("Dawn");
    click("slot/right");
    answer("bOK");
    EXPECT_EQ(getAnswer(), "Save the game: accepted, \"Dawn\", Second slot");
    open("others/form");
    EXPECT_STREQ(find<TextField>("fields/name").getText(), "") << "each has a form of its own";
    answer("bOK");
    EXPECT_EQ(getAnswer(), "Save the game: accepted, \"\", First slot");
}

TEST_F(DialogPages, TheKeyboardOnTheScreenServesADialog) {
    open("others/banner-form");
    click("fields/name");
    runFrames(2);
    for (const char *key :
         {"letter-keys/shift", "letter-keys/d", "letter-keys/a", "letter-keys/w", "letter-keys/n", "letter-keys/enter"})
        click(std::string("screen-keyboard/") + key);
    EXPECT_STREQ(find<TextField>("fields/name").getText(), "Dawn");
    EXPECT_FALSE(isShown("screen-keyboard/letter-keys"));
    EXPECT_TRUE(isOpen("banner-form"));
    answer("bOK");
    EXPECT_EQ(getAnswer(), "Name the ship: accepted, \"Dawn\", First slot");
}

TEST_F(DialogPages, TheKeyboardGoesWithTheDialogThatHasTheField) {
    open("others/form");
    click("fields/name");
    runFrames(2);
    EXPECT_TRUE(isShown("screen-keyboard/letter-keys"));
    tap(ESCAPE_KEY);
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(getAnswer(), "Save the game: cancelled");
    EXPECT_FALSE(exists("screen-keyboard/letter-keys"));
    EXPECT_EQ(UIManager::getSingleton().getKeyboardOverlay()->getOwner(), nullptr);
}

TEST_F(DialogPages, TwoDialogsAreAnsweredOneAfterTheOther) {
    open("others/two");
    EXPECT_STREQ(Dialog::getCurrentModal()->getTitle(), "Leave the game");
    answer("question/bNo");
    EXPECT_EQ(getAnswer(), "Leave the game: declined");
    EXPECT_TRUE(hasFocus("info/bOK"));
    EXPECT_STREQ(Dialog::getCurrentModal()->getTitle(), "Saved");
    answer("info/bOK");
    EXPECT_EQ(getAnswer(), "Saved: accepted");
}

TEST_F(DialogPages, AnOpenDialogGoesWithThePage) {
    const unsigned int before = UIManager::getSingleton().getWidgetCount();
    open("others/two");
    showPage("lists");
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), before);
    EXPECT_TRUE(UIManager::getSingleton().isEnabled());
    click("pages/welcome");
    EXPECT_EQ(textOf("main/title"), "Welcome");
}

TEST_F(DialogPages, APageThatComesWhileADialogOpensIsShown) {
    click("messages/question"); // the opening has just begun
    showPage("lists");
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
    EXPECT_TRUE(UIManager::getSingleton().isEnabled());
    draw();
}

TEST_F(DialogPages, TheLookChangesBehindAnOpenDialogAndInIt) {
    open("others/form");
    click("fields/name");
    type("x");
    for (const bool dark : {true, false}) {
        shown->setDark(dark);
        runFrames(3);
        draw();
    }
    EXPECT_TRUE(isOpen("form"));
    EXPECT_STREQ(find<TextField>("fields/name").getText(), "x");
    click("messages/warning"); // behind the dialog
    answer("bOK");
    EXPECT_EQ(getAnswer(), "Save the game: accepted, \"x\", First slot");
}

TEST_F(DialogPages, TheLookChangesWhileADialogOpensAndCloses) {
    click("messages/info");
    shown->setDark(true);
    runFrames(ANIMATION_FRAMES);
    EXPECT_NEAR(find("info").getOpacity(), 0.7F, 1e-3F);
    click("bOK");
    shown->setDark(false);
    runFrames(ANIMATION_FRAMES);
    EXPECT_EQ(getAnswer(), "Saved: accepted");
    EXPECT_FALSE(isOpen("info"));
}

TEST_F(DialogPages, TheEndComesWithDialogsAndTheKeyboardOpen) {
    open("others/two");
    answer("question/bYes");
    shown->showPage(0);
    runFrames(ANIMATION_FRAMES);
    showPage("dialogs");
    open("others/form");
    click("fields/name");
    runFrames(2);
    EXPECT_TRUE(isShown("screen-keyboard/letter-keys"));
    shown.reset();
    UIManager::shutdown();
    EXPECT_EQ(Dialog::getCurrentModal(), nullptr);
}
