#include "nui/ui/components/Progress.h"

#include "nui/ui/ManagerTest.h"
#include "support/MessageOf.h"

#include "nengine/EngineFactory.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <limits>

using namespace nurel::ui;
using components::Label;
using components::Progress;
using nurel::math::Vector2;
using test::messageOf;

namespace {

constexpr int LARGEST = std::numeric_limits<int>::max();
constexpr int SMALLEST = std::numeric_limits<int>::min();
constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;

class OpenProgress : public Progress {
public:
    using Progress::Progress;
    using Progress::setClean;

    static void clean(Component &component) { (component.*&OpenProgress::setClean)(DIRTY_ALL); }
};

class ProgressTest : public test::ManagerTest {
public:
    ProgressTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mProgress = new OpenProgress("progress");
        place(*mProgress, 100, 100, 200, 20);
        mPanel->addChild(mProgress.get());
        frame();
    }

    static float partOf(const Progress &progress) { return progress.getBar()->getComponentSize().relative.x; }
    float part() const { return partOf(*mProgress); }

    std::string text() const {
        const Label *label = mProgress->getLabel();
        return label ? label->getText() : "no label";
    }

    /// What the format makes of 50 percent.
    std::string shown(const char *format) {
        mProgress->setTextFormat(format);
        return text();
    }

    static core::SmartPtr<Progress> cloneOf(const Progress &progress) {
        return static_cast<Progress *>(progress.clone());
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenProgress> mProgress; ///< around (200, 110)
};

} // namespace

TEST_F(ProgressTest, HasItsDefaults) {
    const core::SmartPtr<Progress> progress(new Progress);
    EXPECT_STREQ(progress->getName(), "");
    EXPECT_STREQ(Progress::ELEMENT, "progress");
    EXPECT_EQ(progress->getElement(), "progress");
    EXPECT_STREQ(progress->getType().getName(), "Progress");
    EXPECT_TRUE(progress->instanceOf(Container::TYPE));
    EXPECT_EQ(progress->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x81);
    EXPECT_EQ(progress->getScrollMask(), 0u);
    EXPECT_EQ(progress->getMinValue(), 0);
    EXPECT_EQ(progress->getMaxValue(), 100);
    EXPECT_EQ(progress->getValue(), 0);
    EXPECT_FALSE(progress->getShowText());
    EXPECT_STREQ(progress->getTextFormat(), "%d%%");
    EXPECT_EQ(progress->getLabel(), nullptr);
    EXPECT_EQ(progress->getChildCount(), 1u);
}

TEST_F(ProgressTest, HasAnEmptyBarFromTheStart) {
    const core::SmartPtr<Progress> progress(new Progress("name"));
    Panel *bar = progress->getBar();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(progress->getChildAt(0), bar);
    EXPECT_STREQ(bar->getName(), "bar");
    EXPECT_EQ(bar->getElement(), "progress");
    EXPECT_TRUE(bar->instanceOf(Panel::TYPE));
    EXPECT_EQ(bar->getAnchor(), 10u);
    EXPECT_EQ(bar->getEventMask(), 0u);
    EXPECT_EQ(bar->getComponentSize().absolute, Vector2(0, 64));
    EXPECT_EQ(bar->getComponentSize().relative, Vector2(0, 0));
}

TEST_F(ProgressTest, ABarMadeWhileAnAnimationIsOpenIsEmptyAllTheSame) {
    manager().beginAnimation();
    const core::SmartPtr<Progress> progress(new Progress("name"));
    EXPECT_EQ(progress->getBar()->getComponentSize().absolute, Vector2(0, 64));
    manager().commitAnimation();
}

TEST_F(ProgressTest, IsMadeByItsClassName) {
    UIManager::getSingleton();
    const core::SmartPtr<nurel::core::Object> made = nurel::EngineFactory::getSingleton().create("Progress");
    ASSERT_NE(made.get(), nullptr);
    EXPECT_EQ(&made->getType(), &Progress::TYPE);
}

// --- the bar ---

TEST_F(ProgressTest, TheBarIsThePartOfTheRange) {
    mProgress->setValue(25);
    EXPECT_EQ(part(), 0.25f);
    frame();
    EXPECT_EQ(mProgress->getBar()->getSize().x, 50);
    EXPECT_EQ(mProgress->getBar()->getPosition().x, -75); // from the left
    mProgress->setMinValue(-50);
    mProgress->setMaxValue(150);
    mProgress->setValue(0);
    EXPECT_EQ(part(), 0.25f);
    mProgress->setValue(150);
    EXPECT_EQ(part(), 1);
}

TEST_F(ProgressTest, ValuesAreShownWithinTheRangeAndStoredAsTheyCome) {
    struct Row {
        int minimum, maximum, value;
        float part;
        const char *text;
    };
    const Row rows[] = {
        {0, 100, 150, 1, "100%"},
        {0, 100, -1, 0, "0%"},
        {0, 100, 100, 1, "100%"},
        {10, 20, 15, 0.5f, "50%"},
        {0, 3, 1, 1.0f / 3, "33%"},
        {0, 3, 2, 2.0f / 3, "66%"},
        {0, 1000, 999, 0.999f, "99%"},
        {0, 100, LARGEST, 1, "100%"},
        {0, 100, SMALLEST, 0, "0%"},
        {SMALLEST, LARGEST, SMALLEST, 0, "0%"},
        {SMALLEST, LARGEST, 0, 0.5f, "50%"},
        {SMALLEST, LARGEST, LARGEST, 1, "100%"},
        {100, 0, 75, 0.25f, "25%"}, // upside down: it fills towards the maximum
        {100, 0, 101, 0, "0%"},
        {100, 0, -1, 1, "100%"},
        {LARGEST, SMALLEST, SMALLEST, 1, "100%"},
        {5, 5, 5, 0, "0%"}, // a range of a single value
        {5, 5, 4, 0, "0%"},
        {5, 5, 6, 1, "100%"},
        {0, 0, 0, 0, "0%"},
        {SMALLEST, SMALLEST, LARGEST, 1, "100%"},
    };
    mProgress->setShowText(true);
    for (const Row &row : rows) {
        SCOPED_TRACE(std::to_string(row.value) + " in " + std::to_string(row.minimum) + " to " +
                     std::to_string(row.maximum));
        mProgress->setMinValue(row.minimum);
        mProgress->setMaxValue(row.maximum);
        mProgress->setValue(row.value);
        EXPECT_EQ(part(), row.part);
        EXPECT_EQ(text(), row.text);
        EXPECT_EQ(mProgress->getMinValue(), row.minimum);
        EXPECT_EQ(mProgress->getMaxValue(), row.maximum);
        EXPECT_EQ(mProgress->getValue(), row.value);
    }
}

TEST_F(ProgressTest, EveryPercentIsShownAsItself) {
    mProgress->setShowText(true);
    for (int percent = 0; percent <= 100; ++percent) {
        mProgress->setValue(percent);
        EXPECT_EQ(text(), std::to_string(percent) + "%");
    }
}

TEST_F(ProgressTest, TheHeightOfTheBarStays) {
    mProgress->getBar()->setSize(Vector2(30, 12), Vector2(0.1f, 0.5f));
    mProgress->setValue(50);
    EXPECT_EQ(mProgress->getBar()->getComponentSize().absolute, Vector2(0, 12));
    EXPECT_EQ(mProgress->getBar()->getComponentSize().relative, Vector2(0.5f, 0.5f));
}

TEST_F(ProgressTest, TheRangeIsShownWithTheNextValue) {
    mProgress->setShowText(true);
    mProgress->setValue(50);
    mProgress->setMaxValue(200);
    mProgress->setMinValue(20);
    EXPECT_EQ(part(), 0.5f);
    EXPECT_EQ(text(), "50%");
    EXPECT_EQ(mProgress->getValue(), 50);
    mProgress->setMinValue(0);
    mProgress->setValue(50);
    EXPECT_EQ(part(), 0.25f);
    EXPECT_EQ(text(), "25%");
}

TEST_F(ProgressTest, RoundedEndsShrinkWithAShortBar) {
    using nurel::scene::meshes::BorderedRectangleMesh;
    const core::SmartPtr<nurel::core::Object> copy(mProgress->clone());
    for (Container *progress : {static_cast<Container *>(mProgress.get()), static_cast<Container *>(copy.get())}) {
        auto *mesh = static_cast<BorderedRectangleMesh *>(progress->getChildAt(0)->getMesh());
        EXPECT_EQ(mesh->getBorderFixMode(), BorderedRectangleMesh::BORDER_FIX_FIT);
    }
}

TEST_F(ProgressTest, AnOpenAnimationTakesTheBarThere) {
    manager().beginAnimation()->setDuration(1);
    mProgress->setValue(100);
    EXPECT_EQ(mProgress->getValue(), 100);
    EXPECT_EQ(part(), 0);
    manager().commitAnimation();
    frame();
    advance(2);
    frame();
    EXPECT_EQ(part(), 1);
}

// --- the text ---

TEST_F(ProgressTest, MakesItsLabelWhenTheTextIsFirstShown) {
    mProgress->addClass("big");
    mProgress->setValue(42);
    EXPECT_EQ(mProgress->getLabel(), nullptr);
    mProgress->setShowText(true);
    EXPECT_TRUE(mProgress->getShowText());
    Label *label = mProgress->getLabel();
    ASSERT_NE(label, nullptr);
    EXPECT_STREQ(label->getText(), "42%");
    EXPECT_STREQ(label->getName(), "label");
    EXPECT_EQ(label->getElement(), "progress");
    EXPECT_EQ(label->getEventMask(), 0u);
    EXPECT_TRUE(label->hasClass("big"));
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(mProgress->getChildIndex(label), 1); // over the bar
    EXPECT_EQ(mProgress->ensureLabel(), label);
}

TEST_F(ProgressTest, ATextThatStaysIsNotLaidOutAgain) {
    mProgress->setShowText(true);
    mProgress->setMaxValue(1000);
    mProgress->setValue(500);
    frame();
    OpenProgress::clean(*mProgress->getLabel());
    mProgress->setValue(505);
    EXPECT_EQ(mProgress->getLabel()->isDirty(Component::DIRTY_ALL), 0u);
    mProgress->setValue(510);
    EXPECT_EQ(text(), "51%");
    EXPECT_NE(mProgress->getLabel()->isDirty(Component::DIRTY_POSITION), 0u);
}

TEST_F(ProgressTest, ALabelMadeByHandIsTheOneThatIsShown) {
    Label *label = mProgress->ensureLabel();
    EXPECT_STREQ(label->getText(), "");
    EXPECT_FALSE(mProgress->getShowText());
    mProgress->setValue(7); // not its text yet
    EXPECT_STREQ(label->getText(), "");
    mProgress->setShowText(true);
    EXPECT_EQ(mProgress->getLabel(), label);
    EXPECT_STREQ(label->getText(), "7%");
}

TEST_F(ProgressTest, TheTextIsHiddenAndShownAgain) {
    mProgress->setShowText(true);
    Label *label = mProgress->getLabel();
    mProgress->setValue(10);
    mProgress->setShowText(false);
    EXPECT_FALSE(mProgress->getShowText());
    EXPECT_FALSE(label->isSelfVisible());
    mProgress->setValue(20);
    EXPECT_STREQ(label->getText(), "10%"); // it does not follow while it is hidden
    mProgress->setShowText(true);
    EXPECT_TRUE(label->isSelfVisible());
    EXPECT_STREQ(label->getText(), "20%");
    EXPECT_EQ(mProgress->getLabel(), label);
}

TEST_F(ProgressTest, ShowingTheTextTwiceDoesNothing) {
    mProgress->setShowText(true);
    mProgress->getLabel()->setVisible(false);
    mProgress->getLabel()->setText("mine");
    mProgress->setShowText(true);
    EXPECT_FALSE(mProgress->getLabel()->isSelfVisible());
    EXPECT_EQ(text(), "mine");
    mProgress->setShowText(false);
    mProgress->getLabel()->setVisible(true);
    mProgress->setShowText(false);
    EXPECT_TRUE(mProgress->getLabel()->isSelfVisible());
}

TEST_F(ProgressTest, HidingATextThatThereIsNotMakesNoLabel) {
    mProgress->setShowText(false);
    EXPECT_EQ(mProgress->getLabel(), nullptr);
    mProgress->setShowText(true);
    mProgress->removeChild(mProgress->getLabel());
    mProgress->setShowText(false);
    EXPECT_EQ(mProgress->getLabel(), nullptr);
}

TEST_F(ProgressTest, ALabelThatWasTakenOutIsMadeAnew) {
    mProgress->setShowText(true);
    const core::SmartPtr<Label> old(mProgress->getLabel());
    mProgress->removeChild(old.get());
    EXPECT_EQ(mProgress->getLabel(), nullptr);
    mProgress->addClass("a");
    EXPECT_FALSE(old->hasClass("a"));
    mProgress->setValue(60);
    EXPECT_STREQ(old->getText(), "0%");
    EXPECT_EQ(text(), "60%");
    mProgress->clearChildren();
    mProgress->setValue(70);
    EXPECT_EQ(text(), "70%");
    EXPECT_EQ(part(), 0.7f);
    EXPECT_EQ(mProgress->getChildCount(), 1u);
}

TEST_F(ProgressTest, TheLabelComesUnderTheLayout) {
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    mProgress->setLayout(layout.get());
    mProgress->setShowText(true);
    EXPECT_TRUE(layout->hasComponent(mProgress->getLabel()));
}

// --- its format ---

TEST_F(ProgressTest, TheFormatGetsThePercentageAndNotTheValue) {
    mProgress->setShowText(true);
    mProgress->setMaxValue(8);
    mProgress->setValue(2);
    EXPECT_EQ(shown("%d of 100"), "25 of 100");
    EXPECT_STREQ(mProgress->getTextFormat(), "%d of 100");
}

TEST_F(ProgressTest, ANewFormatIsShownAtOnceIfTheTextIsShown) {
    mProgress->setValue(50);
    mProgress->setTextFormat("%d");
    EXPECT_EQ(mProgress->getLabel(), nullptr);
    mProgress->setShowText(true);
    EXPECT_EQ(text(), "50");
    mProgress->setMaxValue(200);
    EXPECT_EQ(shown("at %d"), "at 25"); // as with any new value
    EXPECT_EQ(part(), 0.25f);
}

TEST_F(ProgressTest, OnlyPercentageAndPercentSignAreReplaced) {
    mProgress->setShowText(true);
    mProgress->setValue(50);
    const std::pair<const char *, const char *> rows[] = {
        {"", ""},
        {"%d", "50"},
        {"%d%%", "50%"},
        {"%%d", "%d"},
        {"%%%d", "%50"},
        {"%%%%", "%%"},
        {"%%%", "%%"},
        {"%d%d", "5050"},
        {"%", "%"},
        {"50%", "50%"},
        {"%d %", "50 %"},
        {"loading", "loading"},
        {"%s", "%s"},
        {"%n", "%n"},
        {"%s%s%s%s%s%s%n", "%s%s%s%s%s%s%n"},
        {"%d %s", "50 %s"},
        {"%i %u %x %c %p %f", "%i %u %x %c %p %f"},
        {"%5d", "%5d"},
        {"%1$d", "%1$d"},
        {"%*d", "%*d"},
        {"%ld", "%ld"},
        {"%999999999d", "%999999999d"},
        {"%.999999999f", "%.999999999f"},
        {"% d", "% d"},
        {"%D", "%D"},
        {"d%", "d%"},
        {"\xc3\xa9 %d \xe2\x82\xac", "\xc3\xa9 50 \xe2\x82\xac"},
        {"\n%d\t", "\n50\t"},
    };
    for (const auto &[format, expected] : rows) {
        EXPECT_EQ(shown(format), expected);
        EXPECT_STREQ(mProgress->getTextFormat(), format);
    }
}

TEST_F(ProgressTest, ALongFormatIsTakenWhole) {
    mProgress->setShowText(true);
    mProgress->setValue(50);
    std::string format;
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        format += "%s%d%%";
        expected += "%s50%";
    }
    EXPECT_EQ(shown(format.c_str()), expected);
}

TEST_F(ProgressTest, NullIsAnEmptyFormat) {
    mProgress->setShowText(true);
    EXPECT_EQ(shown(nullptr), "");
    EXPECT_STREQ(mProgress->getTextFormat(), "");
}

TEST_F(ProgressTest, TheFormatMayBeAPartOfTheOneInUse) {
    mProgress->setShowText(true);
    mProgress->setTextFormat("a rather long format: %d done");
    EXPECT_EQ(shown(mProgress->getTextFormat() + 2), "rather long format: 0 done");
    EXPECT_EQ(shown(mProgress->getTextFormat()), "rather long format: 0 done");
    EXPECT_EQ(shown(mProgress->getLabel()->getText()), "rather long format: 0 done");
}

// --- classes ---

TEST_F(ProgressTest, ClassesReachBarAndLabel) {
    mProgress->addClass("early"); // without a label
    mProgress->setShowText(true);
    Panel *bar = mProgress->getBar();
    Label *label = mProgress->getLabel();
    const auto clean = [&] {
        for (Component *component : {static_cast<Component *>(mProgress.get()), static_cast<Component *>(bar),
                                     static_cast<Component *>(label)})
            OpenProgress::clean(*component);
    };
    const auto expectStyleDirty = [&] {
        EXPECT_EQ(mProgress->isDirty(STYLE), STYLE);
        EXPECT_EQ(bar->isDirty(STYLE), STYLE);
        EXPECT_EQ(label->isDirty(STYLE), STYLE);
    };
    clean();
    mProgress->addClass("a");
    EXPECT_TRUE(bar->hasClass("a"));
    EXPECT_TRUE(label->hasClass("a"));
    expectStyleDirty();
    clean();
    mProgress->removeClass("early");
    EXPECT_FALSE(bar->hasClass("early"));
    EXPECT_FALSE(label->hasClass("early"));
    EXPECT_TRUE(label->hasClass("a"));
    expectStyleDirty();
    clean();
    mProgress->removeClasses();
    EXPECT_FALSE(mProgress->hasClass("a"));
    EXPECT_FALSE(bar->hasClass("a"));
    EXPECT_FALSE(label->hasClass("a"));
    expectStyleDirty();
    mProgress->addClass(nullptr);
    mProgress->removeClass(nullptr);
}

// --- events ---

TEST_F(ProgressTest, TakesClicksAndFocusWithWhatItsPartsDoNotTake) {
    mProgress->setShowText(true);
    mProgress->setValue(100);
    mProgress->setTabStop(0);
    frame();
    int clicks = 0;
    mProgress->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        ++clicks;
        return false;
    });
    click(200, 110);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(mProgress->hasFocus());
    EXPECT_EQ(mProgress->getValue(), 100);
    click(120, 110);
    key(0xcb);
    manager().setMouseWheel(3);
    frame();
    EXPECT_EQ(mProgress->getValue(), 100);
}

// --- clones ---

TEST_F(ProgressTest, AClonesFieldsAreThoseOfItsSource) {
    mProgress->setMinValue(10);
    mProgress->setMaxValue(30);
    mProgress->setTextFormat("%d!");
    mProgress->setValue(15);
    const core::SmartPtr<Progress> copy = cloneOf(*mProgress);
    EXPECT_EQ(&copy->getType(), &Progress::TYPE);
    EXPECT_STREQ(copy->getName(), "progress");
    EXPECT_EQ(copy->getMinValue(), 10);
    EXPECT_EQ(copy->getMaxValue(), 30);
    EXPECT_EQ(copy->getValue(), 15);
    EXPECT_STREQ(copy->getTextFormat(), "%d!");
    EXPECT_FALSE(copy->getShowText());
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_EQ(copy->getChildCount(), 1u);
    EXPECT_EQ(partOf(*copy), 0.25f); // its bar shows the value at once
    EXPECT_EQ(copy->getEventMask(), mProgress->getEventMask());
}

TEST_F(ProgressTest, ACloneHasABarOfItsOwn) {
    Panel *bar = mProgress->getBar();
    bar->setHeight(3);
    bar->setAnchor(Component::ANCHOR_CENTER);
    bar->setName("stripe");
    bar->addClass("special");
    mProgress->addClass("big");
    const core::SmartPtr<Progress> copy = cloneOf(*mProgress);
    ASSERT_EQ(copy->getChildCount(), 1u);
    Panel *own = copy->getBar();
    EXPECT_EQ(copy->getChildAt(0), own);
    EXPECT_NE(own, bar);
    EXPECT_STREQ(own->getName(), "bar");
    EXPECT_EQ(own->getAnchor(), 10u);
    EXPECT_EQ(own->getEventMask(), 0u);
    EXPECT_EQ(own->getComponentSize().absolute, Vector2(0, 64));
    EXPECT_TRUE(own->hasClass("big"));
    EXPECT_FALSE(own->hasClass("special"));
    copy->setValue(50);
    EXPECT_EQ(partOf(*copy), 0.5f);
    EXPECT_EQ(part(), 0);
}

TEST_F(ProgressTest, ACloneAdoptsItsClonedLabelOverItsBar) {
    mProgress->setShowText(true);
    mProgress->setValue(30);
    mProgress->addClass("big");
    const core::SmartPtr<Progress> copy = cloneOf(*mProgress);
    ASSERT_EQ(copy->getChildCount(), 2u);
    Label *label = copy->getLabel();
    ASSERT_NE(label, nullptr);
    EXPECT_NE(label, mProgress->getLabel());
    EXPECT_EQ(copy->getChildAt(0), copy->getBar());
    EXPECT_EQ(copy->getChildAt(1), label);
    EXPECT_TRUE(copy->getShowText());
    EXPECT_STREQ(label->getName(), "label");
    EXPECT_EQ(label->getElement(), "progress");
    EXPECT_EQ(label->getEventMask(), 0u);
    EXPECT_EQ(&label->getType(), &Label::TYPE);
    EXPECT_TRUE(label->hasClass("big"));
    EXPECT_STREQ(label->getText(), "30%");
    copy->setValue(40);
    EXPECT_STREQ(label->getText(), "40%");
    EXPECT_EQ(text(), "30%");
    copy->setShowText(false);
    EXPECT_FALSE(label->isSelfVisible());
    EXPECT_EQ(copy->ensureLabel(), label);
    copy->addClass("late");
    EXPECT_TRUE(label->hasClass("late"));
    EXPECT_FALSE(mProgress->getLabel()->hasClass("late"));
    const core::SmartPtr<Progress> second = cloneOf(*copy);
    ASSERT_EQ(second->getChildCount(), 2u);
    EXPECT_NE(second->getLabel(), nullptr);
    EXPECT_FALSE(second->getLabel()->isSelfVisible());
}

TEST_F(ProgressTest, ACloneOfOneWithoutItsPartsHasWhatItNeeds) {
    mProgress->setShowText(true);
    mProgress->setValue(30);
    mProgress->clearChildren();
    const core::SmartPtr<Progress> copy = cloneOf(*mProgress);
    ASSERT_EQ(copy->getChildCount(), 2u);
    EXPECT_EQ(copy->getChildAt(0), copy->getBar());
    EXPECT_STREQ(copy->getLabel()->getText(), "30%");
    EXPECT_EQ(mProgress->getChildCount(), 0u);
}

TEST_F(ProgressTest, AClonesTargetLosesWhatItHad) {
    const core::SmartPtr<Progress> target(new Progress("target"));
    Panel *bar = target->getBar();
    target->setShowText(true);
    target->setValue(90);
    target->addClass("old");
    nurel::core::CloningOptions options;
    mProgress->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_EQ(target->getBar(), bar);
    EXPECT_FALSE(bar->hasClass("old"));
    EXPECT_EQ(target->getLabel(), nullptr);
    EXPECT_FALSE(target->getShowText());
    EXPECT_EQ(partOf(*target), 0);
    mProgress->_clone(mProgress.get(), options);
    EXPECT_EQ(mProgress->getChildCount(), 1u);
}

TEST_F(ProgressTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mProgress->_clone(mPanel.get(), options); }), "Progress cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mProgress->_clone(nullptr, options); }), "Progress cannot be cloned into nothing");
}

// --- views ---

TEST_F(ProgressTest, IsSkinnedWithItsParts) {
    mProgress->setShowText(true);
    ASSERT_NE(mProgress->getView(), nullptr);
    ASSERT_NE(mProgress->getBar()->getView(), nullptr);
    ASSERT_NE(mProgress->getLabel()->getView(), nullptr);
    EXPECT_EQ(mProgress->getBar()->getView()->getParent(), mProgress->getView()->getContent());
    EXPECT_EQ(mProgress->getLabel()->getView()->getParent(), mProgress->getView()->getContent());
}

TEST_F(ProgressTest, TheStyleFreeSkinShowsNothing) {
    const core::SmartPtr<skins::DefaultSkin> plain(new skins::DefaultSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    SkinManager::getSingleton().setDefaultSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("plain"));
    const core::SmartPtr<Progress> progress(new Progress("p"));
    place(*progress, 0, 0, 200, 40);
    widget->addChild(progress.get());
    manager().setView(widget.get());
    manager().addWidget(widget.get());
    progress->setShowText(true);
    progress->setValue(50);
    frame();
    EXPECT_FALSE(progress->hasView());
    EXPECT_FALSE(progress->getBar()->hasView());
    EXPECT_EQ(progress->getBar()->getSize().x, 100);
    EXPECT_STREQ(progress->getLabel()->getText(), "50%");
}
