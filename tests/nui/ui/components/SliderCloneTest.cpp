// What a slider shares with its thumb and its copies, and what survives its callbacks.
#include "nui/ui/components/SliderFixture.h"

#include "nmain/core/CloningOptions.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/skins/DefaultSkin.h"
#include "support/MessageOf.h"

using namespace nurel::ui;
using components::Slider;
using nurel::math::Vector2;
using test::messageOf;
using test::SliderTest;

// --- callbacks that take things away ---

TEST_F(SliderTest, ACallbackThatReturnsTrueIsCalledOnce) {
    int calls = 0;
    mSlider->ChangeCallbacks::subscribeCallback([&](Slider *, float) { return ++calls > 0; });
    mSlider->setValue(1, true);
    mSlider->setValue(2, true);
    EXPECT_EQ(calls, 1);
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndTheSliderInADrag) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *slider, float) {
        slider->getParent()->removeChild(slider);
        mSlider = nullptr;
        return false;
    });
    moveTo(199, 120);
    press();
    moveTo(210, 120);
    moveTo(220, 120);
    EXPECT_EQ(mSlider.get(), nullptr);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
    moveTo(230, 120);
    release();
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndTheSliderInAJump) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *slider, float) {
        slider->getParent()->removeChild(slider);
        mSlider = nullptr;
        return true;
    });
    click(280, 120);
    EXPECT_EQ(mSlider.get(), nullptr);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndTheWholeScreen) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *, float) {
        manager().removeWidget(mWidget.get());
        mPanel->clearChildren();
        mSlider = nullptr;
        mPanel = nullptr;
        mWidget = nullptr;
        return false;
    });
    click(280, 120);
    EXPECT_EQ(mSlider.get(), nullptr);
    frame();
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndASliderThatNobodyElseHolds) {
    core::SmartPtr<Slider> slider(new Slider("alone"));
    int calls = 0;
    slider->ChangeCallbacks::subscribeCallback([&](Slider *, float) {
        ++calls;
        slider = nullptr;
        return false;
    });
    slider->setValue(3, true);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(slider.get(), nullptr);
}

TEST_F(SliderTest, ACallbackMayTakeTheThumbOut) {
    mSlider->ChangeCallbacks::subscribeCallback([](Slider *slider, float) {
        slider->clearChildren();
        return false;
    });
    mSlider->onDragBegin(CursorPosition());
    dragTo(10);
    dragTo(10);
    click(280, 120);
    EXPECT_EQ(mSlider->getChildCount(), 0u);
    ASSERT_NE(mSlider->getThumb(), nullptr);
    mSlider->setValue(0, true);
    EXPECT_EQ(x(), LOWEST);
    mSeen.clear();
}

TEST_F(SliderTest, AThumbOutlivesItsSlider) {
    const core::SmartPtr<Panel> thumb(mSlider->getThumb());
    mPanel->removeChild(mSlider.get());
    mSlider = nullptr;
    EXPECT_FALSE(thumb->hasParent());
    mPanel->addChild(thumb.get());
    thumb->setWidth(33);
    frame();
    EXPECT_EQ(thumb->getSize().x, 33);
}

// --- classes ---

TEST_F(SliderTest, ClassesReachTheThumb) {
    constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;
    Panel *thumb = mSlider->getThumb();
    const auto clean = [&] {
        OpenSlider::clean(*mSlider);
        OpenSlider::clean(*thumb);
    };
    clean();
    mSlider->addClass("a");
    EXPECT_TRUE(mSlider->hasClass("a"));
    EXPECT_TRUE(thumb->hasClass("a"));
    EXPECT_EQ(mSlider->isDirty(STYLE), STYLE);
    EXPECT_EQ(thumb->isDirty(STYLE), STYLE);
    mSlider->setClass("b");
    clean();
    mSlider->removeClass("a");
    EXPECT_FALSE(mSlider->hasClass("a"));
    EXPECT_FALSE(thumb->hasClass("a"));
    EXPECT_TRUE(thumb->hasClass("b"));
    EXPECT_EQ(mSlider->isDirty(STYLE), STYLE);
    EXPECT_EQ(thumb->isDirty(STYLE), STYLE);
    clean();
    mSlider->removeClasses();
    EXPECT_FALSE(thumb->hasClass("b"));
    EXPECT_EQ(mSlider->isDirty(STYLE), STYLE);
    EXPECT_EQ(thumb->isDirty(STYLE), STYLE);
    mSlider->addClass(nullptr);
    mSlider->removeClass(nullptr);
}

// --- clones ---

TEST_F(SliderTest, AClonesFieldsAreThoseOfItsSource) {
    mSlider->setRange(10, 20, false);
    mSlider->setAccuracy(0.5f, false);
    mSlider->setValue(12.5f, false);
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    EXPECT_EQ(&copy->getType(), &Slider::TYPE);
    EXPECT_STREQ(copy->getName(), "slider");
    EXPECT_EQ(copy->getMinValue(), 10);
    EXPECT_EQ(copy->getMaxValue(), 20);
    EXPECT_EQ(copy->getAccuracy(), 0.5f);
    EXPECT_EQ(copy->getValue(), 12.5f);
    EXPECT_EQ(copy->getEventMask(), mSlider->getEventMask());
    EXPECT_EQ(copy->getScrollMask(), 0u);
    copy->setValue(11, true); // subscriptions are not cloned
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, ACloneHasAThumbOfItsOwn) {
    Panel *thumb = mSlider->getThumb();
    thumb->setEventMask(0);
    thumb->setAnchor(Component::ANCHOR_TOP_LEFT);
    thumb->setName("knob");
    thumb->addClass("special");
    mSlider->addClass("big");
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 1u);
    Panel *own = copy->getThumb();
    EXPECT_EQ(copy->getChildAt(0), own);
    EXPECT_NE(own, thumb);
    EXPECT_STREQ(own->getName(), "thumb");
    EXPECT_STREQ(own->getType().getName(), "SliderThumb");
    EXPECT_EQ(own->getEventMask(), (Component::EVENT_MASK_DEFAULT | 0x80u) & ~0x21u);
    EXPECT_EQ(own->getAnchor(), 0x12u);
    EXPECT_EQ(own->getComponentSize().absolute, Component::DEFAULT_SIZE);
    EXPECT_TRUE(own->hasClass("big"));
    EXPECT_FALSE(own->hasClass("special"));
    own->setSize({20, 40});
    mPanel->addChild(copy.get());
    copy->setValue(100, false);
    frame();
    EXPECT_EQ(xOf(*copy), HIGHEST);
    EXPECT_EQ(x(), MIDDLE);
}

TEST_F(SliderTest, ACloneTakesOverWhereADragWas) {
    mSlider->getThumb()->setPosition(Vector2(0, 9), Vector2(0, 0.5f));
    mSlider->onDragBegin(CursorPosition());
    dragTo(30);
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    copy->getThumb()->setSize({20, 40});
    mPanel->addChild(copy.get());
    frame();
    (static_cast<Slider &>(*copy).*&OpenSlider::onDragMove)({-10, 0}, CursorPosition());
    EXPECT_EQ(copy->getThumb()->getComponentPosition().absolute, Vector2(40, 9));
    EXPECT_EQ(copy->getThumb()->getComponentPosition().relative, Vector2(0, 0.5f));
    mSeen.clear();
}

TEST_F(SliderTest, AClonesThumbIsInTheOldOnesPlaceAmongTheChildren) {
    const auto child = [](const char *name, int zIndex) {
        Panel *made = new Panel(name);
        made->setZIndex(zIndex);
        return made;
    };
    mSlider->addChild(child("below", -1));
    mSlider->addChild(child("mark", 0));
    mSlider->addChild(child("thumb", 0)); // not the one
    mSlider->addChild(child("above", 1));
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 5u);
    EXPECT_STREQ(copy->getChildAt(0)->getName(), "below");
    EXPECT_EQ(copy->getChildAt(1), copy->getThumb());
    EXPECT_STREQ(copy->getChildAt(2)->getName(), "mark");
    EXPECT_STREQ(copy->getChildAt(3)->getName(), "thumb");
    EXPECT_EQ(&copy->getChildAt(3)->getType(), &Panel::TYPE);
    EXPECT_STREQ(copy->getChildAt(4)->getName(), "above");
}

TEST_F(SliderTest, AClonesLayoutHasTheSameChildren) {
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    mSlider->setLayout(layout.get());
    const core::SmartPtr<Panel> in(new Panel("in"));
    const core::SmartPtr<Panel> out(new Panel("out"));
    mSlider->addChild(in.get(), true);
    mSlider->addChild(out.get(), false);
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 3u);
    ASSERT_TRUE(copy->hasLayout());
    EXPECT_TRUE(copy->getLayout()->hasComponent(copy->getThumb()));
    EXPECT_TRUE(copy->getLayout()->hasComponent(copy->getChildAt(1)));
    EXPECT_FALSE(copy->getLayout()->hasComponent(copy->getChildAt(2)));
}

TEST_F(SliderTest, ACloneFindsTheThumbAtAnyDepth) {
    const core::SmartPtr<Panel> thumb(mSlider->getThumb());
    mSlider->clearChildren();
    const core::SmartPtr<Panel> outer(new Panel("outer"));
    outer->addChild(thumb.get());
    mSlider->addChild(outer.get());
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 2u);
    EXPECT_EQ(static_cast<Panel *>(copy->getChildAt(0))->getChildCount(), 0u);
    EXPECT_EQ(copy->getChildAt(1), copy->getThumb());
}

TEST_F(SliderTest, ACloneOfOneWithoutItsThumbHasOne) {
    mSlider->clearChildren();
    nurel::core::CloningOptions options;
    core::SmartPtr<Slider> copy(static_cast<Slider *>(mSlider->clone(options)));
    EXPECT_EQ(copy->getChildCount(), 1u);
    copy = static_cast<Slider *>(mSlider->clone(options)); // the same options once more
    EXPECT_EQ(copy->getChildCount(), 1u);
    EXPECT_EQ(copy->getChildAt(0), copy->getThumb());
}

TEST_F(SliderTest, AClonesTargetLosesWhatItHad) {
    const core::SmartPtr<Slider> target(new Slider("target"));
    Panel *thumb = target->getThumb();
    target->addClass("old");
    target->addChild(new Panel("child"));
    target->setValue(3, false);
    mSlider->addClass("new");
    nurel::core::CloningOptions options;
    mSlider->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_EQ(target->getThumb(), thumb);
    EXPECT_EQ(target->getChildAt(0), thumb);
    EXPECT_EQ(target->getValue(), 50);
    EXPECT_FALSE(thumb->hasClass("old"));
    EXPECT_TRUE(thumb->hasClass("new"));
    mSlider->_clone(mSlider.get(), options);
    EXPECT_EQ(mSlider->getChildCount(), 1u);
}

TEST_F(SliderTest, AClonesTargetTakesItsThumbBackFromElsewhere) {
    const core::SmartPtr<Slider> target(new Slider("target"));
    target->clearChildren();
    mPanel->addChild(target->getThumb());
    nurel::core::CloningOptions options;
    mSlider->_clone(target.get(), options);
    ASSERT_EQ(target->getChildCount(), 1u);
    EXPECT_EQ(target->getChildAt(0), target->getThumb());
    EXPECT_EQ(mPanel->getChildCount(), 1u);
}

TEST_F(SliderTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mSlider->_clone(mPanel.get(), options); }), "Slider cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mSlider->_clone(nullptr, options); }), "Slider cannot be cloned into nothing");
}

// --- views ---

TEST_F(SliderTest, IsSkinnedWithItsThumb) {
    ASSERT_NE(mSlider->getView(), nullptr);
    ASSERT_NE(mSlider->getThumb()->getView(), nullptr);
    EXPECT_EQ(mSlider->getThumb()->getView()->getParent(), mSlider->getView()->getContent());
}

TEST_F(SliderTest, TheStyleFreeSkinShowsNothingAndNothingCanBeHit) {
    const core::SmartPtr<skins::DefaultSkin> plain(new skins::DefaultSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    SkinManager::getSingleton().setDefaultSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("plain"));
    const core::SmartPtr<Slider> slider(new Slider("s"));
    place(*slider, 0, 0, 200, 40);
    slider->getThumb()->setSize({20, 40});
    widget->addChild(slider.get());
    manager().setView(widget.get());
    manager().addWidget(widget.get());
    frame();
    EXPECT_FALSE(slider->hasView());
    EXPECT_FALSE(slider->getThumb()->hasView());
    EXPECT_EQ(slider->getSize(), Vector2(200, 40));
    slider->setValue(0, false);
    EXPECT_EQ(xOf(*slider), LOWEST);
    click(180, 20);
    EXPECT_EQ(slider->getValue(), 0);
}
