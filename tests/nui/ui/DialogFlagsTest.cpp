#include "nui/ui/DialogFixture.h"

#include "nui/ui/components/Image.h"
#include "nui/ui/components/Panel.h"

namespace nurel::ui {

using components::Image;
using components::Panel;
using test::DialogTest;

namespace {

/// The parts that are shown, of those that the flags are about.
std::string shownParts(const core::SmartPtr<Dialog> &dialog) {
    std::string shown;
    for (const char *name : {"bClose", "pButtons", "bOK", "bYes", "bNo", "bCancel", "iIcon"}) {
        const Component *found = DialogTest::find<Component>(*dialog, name);
        if (found && found->isSelfVisible())
            shown += (shown.empty() ? "" : " ") + std::string(name);
    }
    return shown;
}

std::string iconClasses(const Dialog &dialog) {
    std::string classes;
    for (const char *name : {"info", "question", "warning", "error"}) {
        if (dialog.getIcon()->hasClass(name))
            classes += (classes.empty() ? "" : " ") + std::string(name);
    }
    return classes;
}

} // namespace

// --- Buttons

TEST_F(DialogTest, EachFlagShowsItsButton) {
    EXPECT_EQ(shownParts(form(0)), "");
    EXPECT_EQ(shownParts(form(Dialog::FLAG_OK)), "pButtons bOK");
    EXPECT_EQ(shownParts(form(Dialog::FLAG_YES)), "pButtons bYes");
    EXPECT_EQ(shownParts(form(Dialog::FLAG_CANCEL)), "pButtons bCancel");
    EXPECT_EQ(shownParts(form(Dialog::FLAG_NO)), "pButtons bNo");
    EXPECT_EQ(shownParts(form(Dialog::FLAG_CLOSE)), "bClose");
    EXPECT_EQ(shownParts(form(0x20f)), "bClose pButtons bOK bYes bNo bCancel");
    EXPECT_EQ(shownParts(form(0xdf0)), "") << "icons and bits without a meaning";
}

TEST_F(DialogTest, SetFlagsChangesWhatIsShown) {
    const core::SmartPtr<Dialog> dialog = form(Dialog::FLAG_OK);
    dialog->setFlags(Dialog::FLAG_YES | Dialog::FLAG_NO | Dialog::FLAG_CLOSE);
    EXPECT_EQ(shownParts(dialog), "bClose pButtons bYes bNo");
    EXPECT_EQ(dialog->getFlags(), 0x20aU);
}

TEST_F(DialogTest, TheSameWordAgainDoesNothing) {
    const core::SmartPtr<Dialog> dialog = form(Dialog::FLAG_OK);
    part<Component>(dialog, "bOK").setVisible(false);
    part<Component>(dialog, "bYes").setVisible(true);
    dialog->setFlags(Dialog::FLAG_OK);
    EXPECT_EQ(shownParts(dialog), "pButtons bYes");
}

TEST_F(DialogTest, TheWordThatAWindowStartsWithIsNeverAppliedFirst) {
    const core::SmartPtr<Dialog> dialog = ask(0xff);
    EXPECT_EQ(dialog->getFlags(), 0xffU);
    EXPECT_EQ(shownParts(dialog), "bClose pButtons bOK bYes bNo bCancel iIcon") << "all as the template has it";
    EXPECT_EQ(iconClasses(*dialog), "");
}

TEST_F(DialogTest, ADialogWithATextDoesWithoutACloseButton) {
    addTemplates("bClose");
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_CLOSE | Dialog::FLAG_NO);
    EXPECT_EQ(shownParts(dialog), "pButtons bNo");
}

// --- Icons

TEST_F(DialogTest, TheIconIsShownForAnyOfItsBits) {
    for (const unsigned int flag : {0x10U, 0x20U, 0x40U, 0x80U, 0x100U, 0x1f0U})
        EXPECT_EQ(shownParts(ask(flag)), "iIcon") << flag;
    EXPECT_EQ(shownParts(ask(0x200)), "bClose");
    EXPECT_EQ(shownParts(ask(1)), "pButtons bOK");
}

TEST_F(DialogTest, TheIconsClassesFollowTheFlags) {
    const std::pair<unsigned int, const char *> rows[] = {
        {1, ""},
        {0x10, "info"},
        {0x20, "question"},
        {0x40, "warning"},
        {0x80, "error"},
        {0x30, "info question"},
        {0x50, "info warning"},
        {0x90, "info error"},
        {0x60, "question"},
        {0xa0, "question"},
        {0xc0, "warning"},
        {0xe0, "question"},
        {0xf0, "info question"},
        {0x100, ""},
    };
    for (const auto &[flags, classes] : rows)
        EXPECT_EQ(iconClasses(*ask(flags)), classes) << flags;
}

TEST_F(DialogTest, ClassesOfAnIconStay) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_INFO);
    dialog->setFlags(Dialog::FLAG_ERROR);
    EXPECT_EQ(iconClasses(*dialog), "info error");
    dialog->setFlags(Dialog::FLAG_OK);
    EXPECT_EQ(iconClasses(*dialog), "info error");
    EXPECT_FALSE(dialog->getIcon()->isSelfVisible());
}

TEST_F(DialogTest, ADialogWithABodyOfItsOwnTouchesNoIcon) {
    mFiles.add("icon.ui", R"({"type":"dialog","name":"w","children":[{"type":"image","name":"iIcon"}]})");
    Component *none = nullptr;
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("icon", "n", "T", none, Dialog::FLAG_ERROR);
    EXPECT_EQ(iconClasses(*dialog), "");
    dialog->setFlags(Dialog::FLAG_OK);
    EXPECT_TRUE(dialog->getIcon()->isSelfVisible());
}

// --- The body's room

TEST_F(DialogTest, ABodyFillsAWindowOfFixedSize) {
    const Component::ComponentSize size = form(Dialog::FLAG_OK)->getBody()->getComponentSize();
    EXPECT_EQ(size.absolute, Vector2(-10, -70)) << "less title and answers";
    EXPECT_EQ(size.relative, Vector2(1, 1));
    EXPECT_EQ(size.autoSize, 0U);
    EXPECT_EQ(size.maximum, Vector2(0, 0));
}

TEST_F(DialogTest, HiddenAnswersLeaveTheirRoomToTheBody) {
    const core::SmartPtr<Dialog> dialog = form(0);
    EXPECT_EQ(dialog->getBody()->getComponentSize().absolute, Vector2(-10, -30));
    part<Component>(dialog, "pTitle").setVisible(false);
    dialog->setFlags(Dialog::FLAG_OK);
    EXPECT_EQ(dialog->getBody()->getComponentSize().absolute, Vector2(-10, -40));
}

TEST_F(DialogTest, AMissingTitleBarTakesNoRoom) {
    addTemplates("pTitle");
    mFiles.add("bare.ui", R"({"type":"dialog","name":"bare","children":[{"type":"label","name":"lTitle"},
        {"type":"panel","name":"bClose"}]})");
    Component *none = nullptr;
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("bare", "n", "T", none, Dialog::FLAG_OK);
    EXPECT_EQ(dialog->getBody()->getComponentSize().absolute, Vector2(-10, -40));
}

TEST_F(DialogTest, ABodyKeepsItsOwnHeightInAWindowThatFollowsIt) {
    addTemplates("", R"("size":[400,"auto"])", R"(,"size":[50,"auto",0,"auto"])");
    const Component::ComponentSize size = form(Dialog::FLAG_OK)->getBody()->getComponentSize();
    EXPECT_EQ(size.autoSize, unsigned{Component::AUTO_SIZE_HEIGHT});
    EXPECT_EQ(size.absolute.x, -10);
    EXPECT_EQ(size.relative.x, 1);
    EXPECT_EQ(size.relative.y, 0);
}

TEST_F(DialogTest, ABodyKeepsItsOwnWidthInAWindowThatFollowsIt) {
    addTemplates("", R"("size":["auto",300])", R"(,"size":["auto",60,"auto",0])");
    const Component::ComponentSize size = form(Dialog::FLAG_OK)->getBody()->getComponentSize();
    EXPECT_EQ(size.autoSize, unsigned{Component::AUTO_SIZE_WIDTH});
    EXPECT_EQ(size.absolute.y, -70);
    EXPECT_EQ(size.relative.y, 1);
    EXPECT_EQ(size.relative.x, 0);
}

TEST_F(DialogTest, AnAutomaticSideOfAFixedWindowGivesWay) {
    addTemplates("", R"("size":[400,300])", R"(,"size":["auto","auto","auto","auto"])");
    const Component::ComponentSize size = form(Dialog::FLAG_OK)->getBody()->getComponentSize();
    EXPECT_EQ(size.autoSize, 0U);
    EXPECT_EQ(size.maximum, Vector2(0, 0));
}

TEST_F(DialogTest, TheOffsetOfTheSideThatStaysIsKept) {
    addTemplates("", R"("size":[400,"auto"])", R"(,"size":["auto","auto","auto","auto"])");
    core::SmartPtr<Component> prototype(factory().newInstance("dialog"));
    factory().registerTemplate("offset", prototype.get());
    find<Container>(static_cast<Container &>(*prototype), "pBody")
        ->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT, Vector2(7, 9));
    Component *none = nullptr;
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("offset", "n", "T", none, 1);
    EXPECT_EQ(dialog->getBody()->getAutoSizeFlags(), unsigned{Component::AUTO_SIZE_HEIGHT});
    EXPECT_EQ(dialog->getBody()->getAutoSizeOffset(), Vector2(0, 9));
}

// --- The most that a body may take, on a stage of 800 x 600

namespace {

struct MaximumRow {
    const char *name;
    const char *windowKeys;
    const char *bodyKeys;
    unsigned int flags;
    float width;
    float height;
};

void PrintTo(const MaximumRow &row, std::ostream *out) {
    *out << row.name;
}

class DialogMaximumTest : public DialogTest, public testing::WithParamInterface<MaximumRow> {};

const char *const AUTO = R"(,"size":["auto","auto","auto","auto"])";

const MaximumRow MAXIMA[] = {
    {"HalfTheStage", R"("size":["auto","auto"])", AUTO, 1, 390, 290},
    {"TheWindowsMaximum", R"("size":["auto","auto"],"max-width":500,"max-height":400)", AUTO, 1, 490, 320},
    {"TheWindowsMaximumWithoutAnswers", R"("size":["auto","auto"],"max-width":500,"max-height":400)", AUTO, 0, 490,
     360},
    {"AMaximumThatTitleAndAnswersUseUp", R"("size":["auto","auto"],"max-height":70)", AUTO, 1, 390, 290},
    {"TheBodysOwn", R"("size":["auto","auto"])", R"(,"size":["auto","auto"],"max-width":123,"max-height":45)", 1, 123,
     45},
    {"TheBodysWidthAlone", R"("size":["auto","auto"])", R"(,"size":["auto","auto"],"max-width":123)", 1, 123, 290},
    {"TheBodysHeightAlone", R"("size":["auto","auto"])", R"(,"size":["auto","auto"],"max-height":45)", 1, -10, 45},
    {"TheBodysHeightWithTheWindowsWidth", R"("size":["auto","auto"],"max-width":500)",
     R"(,"size":["auto","auto"],"max-height":45)", 1, 490, 45},
    {"AWindowOfFixedWidth", R"("size":[400,"auto"])", AUTO, 1, 390, 290},
};

} // namespace

TEST_P(DialogMaximumTest, TheBodyIsBounded) {
    const MaximumRow &row = GetParam();
    addTemplates("", row.windowKeys, row.bodyKeys);
    const core::SmartPtr<Dialog> dialog = form(row.flags);
    EXPECT_EQ(dialog->getBody()->getMaximumSize(), Vector2(row.width, row.height));
}

INSTANTIATE_TEST_SUITE_P(Rows, DialogMaximumTest, testing::ValuesIn(MAXIMA),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(DialogTest, AnAutomaticWindowMayNameAPartOfTheStage) {
    // What counts is the declared size, whatever takes its place.
    core::SmartPtr<Component> prototype(factory().newInstance("dialog"));
    prototype->setSize(Vector2(20, -10), Vector2(0.5F, 0.8F));
    prototype->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    find<Container>(static_cast<Container &>(*prototype), "pBody")
        ->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    factory().registerTemplate("part", prototype.get());
    Component *none = nullptr;
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("part", "n", "T", none, Dialog::FLAG_OK);
    EXPECT_EQ(dialog->getBody()->getMaximumSize(), Vector2(410, 390)) << "420 - 10; 470 - 70 - 10";
}

TEST_F(DialogTest, AHiddenTitleStillCountsAgainstTheMaximum) {
    addTemplates("", R"("size":["auto","auto"],"max-height":400)", AUTO);
    core::SmartPtr<Component> prototype(factory().newInstance("dialog"));
    find<Container>(static_cast<Container &>(*prototype), "pTitle")->setVisible(false);
    factory().registerTemplate("hidden", prototype.get());
    Component *none = nullptr;
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("hidden", "n", "T", none, Dialog::FLAG_OK);
    EXPECT_EQ(dialog->getBody()->getMaximumHeight(), 320);
}

} // namespace nurel::ui
