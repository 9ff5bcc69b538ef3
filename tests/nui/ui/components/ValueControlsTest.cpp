// Sliders, selectors and progress bars in rough use: out of any widget, several at once, changed in the middle of an
// event.
#include "nui/ui/ManagerTest.h"

#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIEventHandler.h"

#include <functional>
#include <string>

using namespace nurel::ui;
using components::Label;
using components::Progress;
using components::Selector;
using components::Slider;
using nurel::math::Vector2;

namespace {

class OpenSlider : public Slider {
public:
    using Slider::onDragBegin;
    using Slider::onDragMove;
    using Slider::Slider;
};

class ValueControlsTest : public test::ManagerTest {
public:
    ValueControlsTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mSlider = addSlider("slider", 100);
    }

    /// 200 wide, around (200, y + 20), with a thumb of 20.
    core::SmartPtr<OpenSlider> addSlider(const char *name, float y) {
        core::SmartPtr<OpenSlider> slider(new OpenSlider(name));
        slider->getThumb()->setSize({20, 40});
        place(*slider, 100, y, 200, 40);
        mPanel->addChild(slider.get());
        frame();
        return slider;
    }

    core::SmartPtr<Selector> addSelector(float y) {
        core::SmartPtr<Selector> selector(new Selector("selector"));
        for (Component *part :
             {static_cast<Component *>(selector->getItem()), static_cast<Component *>(selector->getLeft()),
              static_cast<Component *>(selector->getRight())})
            part->setSize({40, 40});
        place(*selector, 100, y, 200, 40);
        for (const char *text : {"one", "two", "three"})
            selector->addItem(text, nullptr);
        mPanel->addChild(selector.get());
        frame();
        return selector;
    }

    /// Takes hold of the thumb and begins a drag, which has not moved it yet.
    static void grab() {
        moveTo(199, 120);
        press();
        moveTo(210, 120);
    }

    static float xOf(const Slider &slider) { return slider.getThumb()->getComponentPosition().absolute.x; }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenSlider> mSlider; ///< around (200, 120)
};

} // namespace

// --- in the middle of a drag ---

TEST_F(ValueControlsTest, ASliderThatIsDisabledInADragStaysWhereItIs) {
    grab();
    moveTo(220, 120);
    const float value = mSlider->getValue();
    ASSERT_NE(value, 50);
    mSlider->setEnabled(false);
    moveTo(250, 120);
    release();
    moveTo(260, 120);
    EXPECT_EQ(mSlider->getValue(), value);
    mSlider->setEnabled(true);
    moveTo(270, 120);
    EXPECT_EQ(mSlider->getValue(), value);
    click(101, 120);
    EXPECT_EQ(mSlider->getValue(), 0);
}

TEST_F(ValueControlsTest, ASliderThatIsHiddenInADragLetsGo) {
    grab();
    mSlider->setVisible(false);
    moveTo(250, 120);
    release();
    const float value = mSlider->getValue();
    moveTo(280, 120);
    EXPECT_EQ(mSlider->getValue(), value);
    mSlider->setVisible(true);
    frame();
    click(299, 120);
    EXPECT_EQ(mSlider->getValue(), 100);
}

// Its thumb stays the pressed component: the manager forgets only what leaves the tree itself.
TEST_F(ValueControlsTest, ASliderThatIsTakenOutInADragIsLetGoWithTheRelease) {
    grab();
    mPanel->removeChild(mSlider.get());
    for (const int x : {230, 250, 270, 290})
        moveTo(x, 120);
    release();
    EXPECT_EQ(manager().getDragging(), nullptr);
    const float value = mSlider->getValue();
    moveTo(150, 120);
    mPanel->addChild(mSlider.get());
    moveTo(160, 120);
    EXPECT_EQ(mSlider->getValue(), value);
    click(101, 120);
    EXPECT_EQ(mSlider->getValue(), 0);
}

TEST_F(ValueControlsTest, ASlidersParentMayGoInADrag) {
    grab();
    mWidget->removeChild(mPanel.get());
    mPanel = nullptr;
    moveTo(250, 120);
    release();
    EXPECT_EQ(mSlider->getValue(), 50);
}

TEST_F(ValueControlsTest, ACallbackOfADragMayShutTheManagerDown) {
    mSlider->ChangeCallbacks::subscribeCallback([](Slider *, float) {
        UIManager::shutdown();
        return false;
    });
    grab();
    moveTo(250, 120);
    EXPECT_NE(mSlider->getValue(), 50);
    mSlider->setValue(3, false);
    EXPECT_EQ(mSlider->getValue(), 3);
}

TEST_F(ValueControlsTest, ACallbackOfADragMayGiveTheThumbAway) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *slider, float) {
        const core::SmartPtr<Panel> thumb(slider->getThumb());
        if (thumb->getParent() == slider) {
            slider->removeChild(thumb.get());
            mPanel->addChild(thumb.get());
        }
        return false;
    });
    grab();
    moveTo(220, 120);
    moveTo(230, 120);
    release();
    mSlider->setValue(100, false);
    frame();
    EXPECT_EQ(mSlider->getThumb()->getParent(), mPanel.get());
    EXPECT_EQ(xOf(*mSlider), 90) << "it is the slider's all the same";
}

TEST_F(ValueControlsTest, ACallbackMaySetTheValueThatItIsToldOf) {
    int depth = 0;
    mSlider->ChangeCallbacks::subscribeCallback([&depth](Slider *slider, float) {
        if (++depth < 5)
            slider->setValue(slider->getValue() + 1, true);
        return false;
    });
    mSlider->setValue(10, true);
    EXPECT_EQ(mSlider->getValue(), 14);
    EXPECT_EQ(depth, 5);
}

TEST_F(ValueControlsTest, TheRangeMayChangeInADrag) {
    grab();
    moveTo(220, 120);
    mSlider->setRange(0, 1, false);
    frame();
    moveTo(1000, 120);
    EXPECT_EQ(mSlider->getValue(), 1);
    moveTo(-1000, 120);
    EXPECT_EQ(mSlider->getValue(), 0);
    release();
}

// --- several ---

TEST_F(ValueControlsTest, ADragOfOneSliderLeavesAnotherAlone) {
    const core::SmartPtr<Slider> other = addSlider("other", 150);
    grab();
    moveTo(230, 170); // over the other one
    moveTo(240, 170);
    release();
    EXPECT_EQ(other->getValue(), 50);
    EXPECT_GT(mSlider->getValue(), 50);
}

TEST_F(ValueControlsTest, ASliderUnderAnotherWidgetIsOutOfReach) {
    const core::SmartPtr<Widget> above = addWidget("above");
    const core::SmartPtr<Panel> cover = addPanel(*above, "cover", 0, 0, 800, 600);
    frame();
    click(280, 120);
    EXPECT_EQ(mSlider->getValue(), 50);
    manager().removeWidget(above.get());
    frame();
    click(280, 120);
    EXPECT_GT(mSlider->getValue(), 90);
}

TEST_F(ValueControlsTest, TheTrackOfAScaledSliderIsHitWhereItIsSeen) {
    place(*mSlider, 0, 100, 200, 40);
    mSlider->setScale({2, 2}); // seen from 0 to 400
    frame();
    const Vector2 middle(mSlider->getWorldPosition().x, mSlider->getWorldPosition().y);
    click(static_cast<int>(middle.x) + 100, static_cast<int>(middle.y));
    EXPECT_NEAR(xOf(*mSlider), 50, 1);
    EXPECT_NEAR(mSlider->getValue(), (50 + 91) * 100.0f / 181, 1);
}

// --- out of any widget ---

TEST_F(ValueControlsTest, OutOfAnyWidgetTheyKeepTheirValues) {
    const core::SmartPtr<OpenSlider> slider(new OpenSlider("s"));
    const core::SmartPtr<Progress> progress(new Progress("p"));
    const core::SmartPtr<Selector> selector(new Selector("c"));
    slider->setAccuracy(5, true);
    slider->setValue(33, true);
    EXPECT_EQ(slider->getValue(), 30);
    const Ray ray;
    const CursorPosition at;
    EXPECT_EQ(slider->handleEvent(MouseEvent(ray, at, MouseEvent::MOUSE_RELEASE, 0, 1)), slider.get());
    EXPECT_EQ(slider->getValue(), 30);
    slider->onDragMove({-5, 0}, at);
    EXPECT_EQ(slider->getThumb()->getParent(), slider.get());
    progress->setShowText(true);
    progress->setValue(40);
    EXPECT_STREQ(progress->getLabel()->getText(), "40%");
    selector->addItem("a", nullptr);
    selector->getRight()->handleEvent(ClickEvent(ray, at, at));
    EXPECT_EQ(selector->getSelectedIndex(), 0);
    EXPECT_STREQ(selector->getItem()->getText(), "a");
}

TEST_F(ValueControlsTest, TheyOutliveTheManager) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    const core::SmartPtr<Progress> progress(new Progress("p"));
    UIManager::shutdown();
    selector->setSelectedIndex(1, true);
    progress->setShowText(true);
    progress->setValue(40);
    mSlider->setValue(30, true);
    const core::SmartPtr<nurel::core::Object> copies[] = {selector->clone(), progress->clone(), mSlider->clone()};
    EXPECT_EQ(static_cast<Slider &>(*copies[2]).getValue(), 30);
    EXPECT_STREQ(static_cast<Progress &>(*copies[1]).getLabel()->getText(), "40%");
    EXPECT_STREQ(static_cast<Selector &>(*copies[0]).getItem()->getText(), "two");
}

// --- copies and clones ---

TEST_F(ValueControlsTest, ACopyOfAControlGoesWithoutHarm) {
    const core::SmartPtr<Progress> progress(new Progress("p"));
    progress->setShowText(true);
    mPanel->addChild(progress.get());
    {
        Slider slider(*mSlider);
        slider.setValue(70, false);
        Progress bar(*progress);
        bar.setValue(70);
        bar.addClass("copied");
        slider = *mSlider;
        bar = *progress;
        EXPECT_EQ(slider.getValue(), 50);
        EXPECT_EQ(bar.getValue(), 0);
    }
    frame();
    EXPECT_EQ(mSlider->getThumb()->getParent(), mSlider.get());
    EXPECT_EQ(progress->getBar()->getParent(), progress.get());
    mSlider->setValue(60, false);
    EXPECT_EQ(mSlider->getValue(), 60);
}

TEST_F(ValueControlsTest, ACloneThatIsMadeInADragIsNotDragged) {
    core::SmartPtr<Slider> copy;
    mSlider->ChangeCallbacks::subscribeCallback([&](Slider *slider, float) {
        if (!copy)
            copy = static_cast<Slider *>(slider->clone());
        return false;
    });
    grab();
    moveTo(220, 120);
    ASSERT_TRUE(copy);
    const float value = copy->getValue();
    moveTo(250, 120);
    release();
    EXPECT_EQ(copy->getValue(), value);
    EXPECT_NE(mSlider->getValue(), value);
    EXPECT_EQ(copy->getState() & Component::STATE_ACTIVE, 0u);
}

TEST_F(ValueControlsTest, ACloneOfAProgressAdoptsItsLabelAtAnyDepth) {
    const core::SmartPtr<Progress> progress(new Progress("p"));
    progress->setShowText(true);
    const core::SmartPtr<Label> label(progress->getLabel());
    const core::SmartPtr<Panel> wrapper(new Panel("wrapper"));
    progress->removeChild(label.get());
    wrapper->addChild(label.get());
    progress->addChild(wrapper.get());
    EXPECT_EQ(progress->getLabel(), label.get());
    const core::SmartPtr<Progress> copy(static_cast<Progress *>(progress->clone()));
    copy->setValue(12);
    ASSERT_EQ(copy->getChildCount(), 2u);
    EXPECT_STREQ(copy->getLabel()->getText(), "12%");
    EXPECT_STREQ(copy->getLabel()->getParent()->getName(), "wrapper");
    EXPECT_STREQ(label->getText(), "0%");
}

TEST_F(ValueControlsTest, ACloneOfASelectorWithoutItsPartsHasThem) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    selector->setSelectedIndex(2, false);
    selector->clearChildren();
    const core::SmartPtr<Selector> copy(static_cast<Selector *>(selector->clone()));
    ASSERT_EQ(copy->getChildCount(), 3u);
    EXPECT_EQ(copy->getChildAt(0), copy->getItem());
    EXPECT_EQ(copy->getChildAt(1), copy->getLeft());
    EXPECT_EQ(copy->getChildAt(2), copy->getRight());
    EXPECT_STREQ(copy->getItem()->getText(), "three");
    EXPECT_EQ(selector->getChildCount(), 0u);
}

// --- texts of any kind ---

TEST_F(ValueControlsTest, TextsMayBeMalformedOrVeryLong) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    const core::SmartPtr<Progress> progress(new Progress("p"));
    place(*progress, 100, 300, 200, 20);
    mPanel->addChild(progress.get());
    progress->setShowText(true);
    const std::string lengthy(100000, 'x');
    const std::string texts[] = {"", "\xff\xfe%d\xc3", "\xed\xa0\x80", "%", "\n\t\x01", lengthy};
    int index = 2;
    for (const std::string &text : texts) {
        selector->addItem(text.c_str(), nullptr);
        selector->setSelectedIndex(++index, true);
        EXPECT_EQ(selector->getItemText(index), text);
        selector->setNoItemText(text.c_str());
        progress->setTextFormat(text.c_str());
        EXPECT_EQ(progress->getTextFormat(), text);
        frame();
    }
    EXPECT_EQ(progress->getLabel()->getText(), lengthy);
}

TEST_F(ValueControlsTest, ASelectorStepsThroughManyEntries) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    for (int i = 3; i < 100000; ++i)
        selector->addItem("entry", nullptr);
    selector->setCycle(true);
    click(110, 220);
    EXPECT_EQ(selector->getSelectedIndex(), 99999);
    click(290, 220);
    EXPECT_EQ(selector->getSelectedIndex(), 0);
}

// --- selectors in the middle of a click ---

TEST_F(ValueControlsTest, ACallbackMayDisableTheSelectorOrCloneIt) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    core::SmartPtr<Selector> copy;
    selector->SelectionCallbacks::subscribeCallback([&](Selector *stepped, int) {
        stepped->setEnabled(false);
        copy = static_cast<Selector *>(stepped->clone());
        return false;
    });
    click(290, 220);
    click(290, 220);
    EXPECT_EQ(selector->getSelectedIndex(), 0);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->getSelectedIndex(), 0);
    EXPECT_STREQ(copy->getItem()->getText(), "one");
}

TEST_F(ValueControlsTest, ACallbackMayShutTheManagerDownInAClick) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    selector->SelectionCallbacks::subscribeCallback([](Selector *, int) {
        UIManager::shutdown();
        return false;
    });
    click(290, 220);
    EXPECT_EQ(selector->getSelectedIndex(), 0);
    EXPECT_STREQ(selector->getItem()->getText(), "one");
}

TEST_F(ValueControlsTest, ASubscriberOfAButtonMayEndTheSelectorAheadOfItsStep) {
    core::SmartPtr<Selector> selector = addSelector(200);
    const core::SmartPtr<Panel> right(selector->getRight());
    right->HoverCallbacks::subscribeCallback([&](UIEventHandler *, const HoverEvent &) {
        if (selector)
            mPanel->removeChild(selector.get());
        selector = nullptr;
        return false;
    });
    click(290, 220);
    EXPECT_FALSE(selector);
    frame();
    EXPECT_FALSE(right->hasParent());
}

// --- idle ---

TEST_F(ValueControlsTest, WhatDoesNotChangeIsNotUpdated) {
    const core::SmartPtr<Selector> selector = addSelector(200);
    const core::SmartPtr<Progress> progress(new Progress("p"));
    place(*progress, 100, 300, 200, 20);
    progress->setShowText(true);
    mPanel->addChild(progress.get());
    frame();
    frame();
    for (const Container *control : {static_cast<Container *>(mSlider.get()), static_cast<Container *>(selector.get()),
                                     static_cast<Container *>(progress.get())}) {
        EXPECT_EQ(control->isDirty(Component::DIRTY_ALL), 0u) << control->getName();
        for (unsigned int i = 0; i < control->getChildCount(); ++i)
            EXPECT_EQ(control->getChildAt(i)->isDirty(Component::DIRTY_ALL), 0u) << control->getChildAt(i)->getName();
    }
}
