#include "nui/ui/css/CSSSkin.h"

#include "foundation/core/Exception.h"
#include "nmain/vfs/File.h"
#include "nmain/vfs/MemoryFileSystem.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Radio.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/css/StyleTest.h"

#include <ostream>

using namespace nurel::ui;
using nurel::ui::css::CSS;
using nurel::ui::css::CSSSkin;

namespace {

class CSSSkinTest : public test::StyleTest {
public:
    core::SmartPtr<CSSSkin> skinWith(const char *sheet) {
        core::SmartPtr<CSSSkin> skin(new CSSSkin("other"));
        skin->setStyleSheet(test::parseSheetText(sheet).release());
        return skin;
    }

    void setFile(CSSSkin &skin, const char *text) {
        mFiles.add("sheet.css", text);
        nurel::vfs::File file(mFiles, "sheet.css");
        skin.setStyleSheet(&file);
    }

    nurel::vfs::MemoryFileSystem mFiles;
};

struct ViewName {
    const char *test;
    Component *(*make)();
    const char *view;
    bool skinsChildren;
};

std::ostream &operator<<(std::ostream &out, const ViewName &row) {
    return out << row.test;
}

class CSSSkinViews : public test::StyleTest, public testing::WithParamInterface<ViewName> {};

} // namespace

TEST_P(CSSSkinViews, MakesTheViewOfTheClassAndThoseOfItsChildren) {
    const core::SmartPtr<Component> component(GetParam().make());
    core::SmartPtr<Label> child(new Label("child"));
    if (component->isContainer())
        static_cast<Container &>(*component).addChild(child.get());
    component->setSkin(mStyle.get());
    ASSERT_NE(component->getView(), nullptr);
    EXPECT_STREQ(component->getView()->getName(), GetParam().view);
    EXPECT_STREQ(component->getView()->getType().getName(), GetParam().view);
    EXPECT_EQ(component->getView()->getSkin(), mStyle.get());
    EXPECT_EQ(child->hasView(), GetParam().skinsChildren);
    if (GetParam().skinsChildren) {
        EXPECT_EQ(child->getView()->getParent(), component->getView()->getContent());
    }
}

INSTANTIATE_TEST_SUITE_P(
    EveryClass, CSSSkinViews,
    testing::Values(
        ViewName{"Image", [] { return static_cast<Component *>(new components::Image); }, "CSSImageView", false},
        ViewName{"Checkbox", [] { return static_cast<Component *>(new components::Checkbox); }, "CSSCheckboxView",
                 true},
        ViewName{"Radio", [] { return static_cast<Component *>(new components::Radio); }, "CSSCheckboxView", true},
        ViewName{"Listbox", [] { return static_cast<Component *>(new components::Listbox); }, "CSSListboxView", true},
        ViewName{"Selector", [] { return static_cast<Component *>(new components::Selector); }, "CSSSelectorView",
                 true},
        ViewName{"Progress", [] { return static_cast<Component *>(new components::Progress); }, "CSSProgressView",
                 true},
        ViewName{"Slider", [] { return static_cast<Component *>(new components::Slider); }, "CSSSliderView", true},
        ViewName{"TextField", [] { return static_cast<Component *>(new components::TextField); }, "CSSTextFieldView",
                 true},
        ViewName{"Button", [] { return static_cast<Component *>(new components::Button); }, "CSSButtonView", true},
        ViewName{"Panel", [] { return static_cast<Component *>(new components::Panel); }, "CSSPanelView", true},
        ViewName{"Label", [] { return static_cast<Component *>(new components::Label); }, "CSSLabelView", false},
        ViewName{"Widget", [] { return static_cast<Component *>(new Widget); }, "CSSWidgetView", true}),
    [](const auto &row) { return std::string(row.param.test); });

TEST_F(CSSSkinTest, HasNoSheetAtFirstAndItsViewsNoStyle) {
    const core::SmartPtr<CSSSkin> skin(new CSSSkin("bare"));
    EXPECT_STREQ(skin->getName(), "bare");
    EXPECT_EQ(skin->getStyleSheet(), nullptr);
    skin->style(nullptr);
    mStyle->setStyleSheet(static_cast<CSS *>(nullptr));
    const auto widget = addStyledWidget();
    EXPECT_STREQ(widget->getView()->getName(), "CSSWidgetView");
    EXPECT_GT(widget->getView()->getChildCount(), 0U);
}

TEST_F(CSSSkinTest, ReadsAFileAndReplacesTheSheet) {
    setFile(*mStyle, "a { width: 1px; } b { width: 2px; }");
    EXPECT_EQ(mStyle->getStyleSheet()->size(), 2U);
    setFile(*mStyle, "c { width: 1px; }");
    EXPECT_EQ(test::describeSheet(*mStyle->getStyleSheet()), "c{width}");
}

TEST_F(CSSSkinTest, KeepsTheSheetWhenAFileFailsAndSaysSo) {
    setFile(*mStyle, "a { width: 1px; }");
    const CSS *before = mStyle->getStyleSheet();
    EXPECT_THROW(setFile(*mStyle, "a { width: 1px }"), nurel::parser::LexerException);
    EXPECT_EQ(mStyle->getStyleSheet(), before);
    EXPECT_EQ(before->size(), 1U);
    std::string reason;
    try {
        setFile(*mStyle, "b { width: 1px }");
    } catch (const nurel::parser::LexerException &exception) {
        reason = exception.what();
    }
    EXPECT_FALSE(reason.empty());
    EXPECT_EQ(mLog.take(logging::Level::ERROR).back(), "CSSSkin::setStyleSheet: unable to parse CSS: " + reason);
}

TEST_F(CSSSkinTest, RaisesForAFileThatIsNotThere) {
    nurel::vfs::File file(mFiles, "missing.css");
    EXPECT_THROW(mStyle->setStyleSheet(&file), core::Exception);
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR).rfind("CSSSkin::setStyleSheet: unable to parse CSS", 0), 0U);
    EXPECT_THROW(mStyle->setStyleSheet(static_cast<nurel::vfs::File *>(nullptr)), core::IllegalArgumentException);
}

TEST_F(CSSSkinTest, KeepsASheetThatItIsGivenAgain) {
    CSS *sheet = mStyle->getStyleSheet();
    mStyle->setStyleSheet(sheet);
    EXPECT_EQ(mStyle->getStyleSheet(), sheet);
    EXPECT_TRUE(sheet->empty());
}

TEST_F(CSSSkinTest, CopiesShareTheSheetAndMayEndInAnyOrder) {
    const auto first = skinWith("a { width: 1px; }");
    core::SmartPtr<CSSSkin> copy(new CSSSkin(*first));
    EXPECT_EQ(copy->getStyleSheet(), first->getStyleSheet());
    *mStyle = *first;
    EXPECT_EQ(mStyle->getStyleSheet()->size(), 1U);
    copy = nullptr;
    EXPECT_EQ(first->getStyleSheet()->size(), 1U);
    first->setStyleSheet(static_cast<CSS *>(nullptr));
    EXPECT_EQ(mStyle->getStyleSheet()->size(), 1U);
}

TEST_F(CSSSkinTest, MergesByTheOrderInWhichRulesWereParsedWhicheverSkinMerges) {
    const auto first = skinWith("a { width: 1px; } .late { width: 1px; }");
    const auto second = skinWith("b { height: 2px; }");
    second->merge(first.get());
    EXPECT_EQ(test::describeSheet(*second->getStyleSheet()), "a{width} b{height} .late.{width}");
    EXPECT_EQ(first->getStyleSheet()->size(), 2U);
    EXPECT_THROW(second->merge(nullptr), core::IllegalArgumentException);
    const core::SmartPtr<CSSSkin> bare(new CSSSkin("bare"));
    EXPECT_THROW(second->merge(bare.get()), core::IllegalArgumentException);
    EXPECT_THROW(bare->merge(second.get()), core::IllegalArgumentException);
}

TEST_F(CSSSkinTest, ANewSheetRestylesNothingUntilItIsAskedFor) {
    const auto panel = addStyledPanel("panel { margin: 3px; }");
    EXPECT_EQ(panel->getMargin(), Vector4(3, 3, 3, 3));
    setSheet("panel { margin: 5px; }");
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(3, 3, 3, 3));
    panel->addClass("x");
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(5, 5, 5, 5));
    setSheet("panel { margin: 7px; }");
    manager().refresh();
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(7, 7, 7, 7));
}

TEST_F(CSSSkinTest, DroppingTheSheetLeavesWhatWasApplied) {
    const auto panel = addStyledPanel("panel { margin: 3px; }");
    mStyle->setStyleSheet(static_cast<CSS *>(nullptr));
    panel->addClass("x");
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(3, 3, 3, 3));
}

TEST_F(CSSSkinTest, IsForgottenAsTheDefaultSkinWithItsEnd) {
    core::SmartPtr<CSSSkin> skin(new CSSSkin("short"));
    SkinManager::getSingleton().setDefaultSkin(skin.get());
    skin = nullptr;
    EXPECT_EQ(SkinManager::getSingleton().getDefaultSkin(), nullptr);
    skin = new CSSSkin("short");
    SkinManager::getSingleton().setDefaultSkin(mStyle.get());
    skin = nullptr;
    EXPECT_EQ(SkinManager::getSingleton().getDefaultSkin(), mStyle.get());
}
