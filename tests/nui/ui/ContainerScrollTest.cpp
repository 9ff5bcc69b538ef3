#include "nui/ui/Container.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/skins/DefaultSkin.h"

namespace test {

namespace {

/// A box of 100 x 80 with one child in its top left corner.
class ContainerScroll : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        box = new Box("box");
        child = new Leaf("child");
        box->setSize(Vector2(100, 80));
        child->setAnchor(Component::ANCHOR_TOP_LEFT);
        box->addChild(child.get());
    }

    void TearDown() override {
        child = nullptr;
        box = nullptr;
        EngineFixture::TearDown();
    }

    void resizeChild(float width, float height) {
        child->setSize(Vector2(width, height));
        update();
    }

    void update() {
        for (int i = 0; i < 4; ++i)
            box->update();
    }

    core::SmartPtr<Box> box;
    core::SmartPtr<Leaf> child;
};

} // namespace

TEST_F(ContainerScroll, HasItsDefaults) {
    const Box fresh("fresh");
    EXPECT_EQ(fresh.getScrollMask(), 3U);
    EXPECT_TRUE(fresh.getClipChildren());
    EXPECT_FALSE(fresh.isEventEnabled(UIEvent::ET_DRAG_EVENT));
    EXPECT_EQ(fresh.getScrollOffset(), Vector2(0, 0));
    EXPECT_FALSE(fresh.getScrollInfoH().scrollable);
    EXPECT_EQ(fresh.getScrollInfoV().bar, nullptr);
    EXPECT_FALSE(fresh.hasLayout());
}

TEST_F(ContainerScroll, MeasuresWhatTheChildrenCover) {
    child->setMargin(Vector4(1, 2, 3, 4));
    resizeChild(46.0f, 34.0f); // 40 x 30 without the margins
    EXPECT_EQ(child->getSize(), Vector2(40, 30));
    EXPECT_EQ(child->getPosition(), Vector3(-26, -24, 0));
    EXPECT_EQ(box->getContentExtentMin(), Vector2(-50, -40));
    EXPECT_EQ(box->getContentExtentMax(), Vector2(0, 0)); // the origin always lies within
    EXPECT_EQ(box->getContentExtents(), Vector2(50, 40));
    EXPECT_EQ(box->getScrollMin(), Vector2(0, 0));
    EXPECT_EQ(box->getScrollMax(), Vector2(50, 40));
    EXPECT_TRUE(box->isContentInside());
    EXPECT_FALSE(box->isContentOutside());
}

TEST_F(ContainerScroll, HiddenChildrenAreNotMeasured) {
    resizeChild(300, 300);
    child->setVisible(false);
    box->forceDirty(Component::DIRTY_CONTENT);
    update();
    EXPECT_EQ(box->getContentExtents(), Vector2(0, 0));
    EXPECT_FALSE(box->getScrollInfoH().scrollable);
}

TEST_F(ContainerScroll, BorderAndPaddingMoveTheRoom) {
    box->setPadding(Vector4(1, 2, 3, 4));
    box->setBorder(Vector4(5, 6, 7, 9));
    resizeChild(20, 20);
    EXPECT_EQ(box->getContainerSize(), Vector2(79, 64));
    // halves floor(80/2) = 40 and floor(65/2) = 32; left 13, right 8, top 6, bottom 10
    EXPECT_EQ(child->getPosition(), Vector3(-27.5f, -24, 0)); // anchor -29.5, inset floor(2.5), floor(-2)
    EXPECT_EQ(box->getContentExtentMin(), Vector2(-38, -34)); // floor(-37.5), -34
    EXPECT_EQ(box->getScrollMin(), Vector2(40 - 2 - 38, 32 + 2 - 34));
    EXPECT_EQ(box->getScrollMax(), Vector2(40 + 3, 32 - 2));
}

TEST_F(ContainerScroll, BarsComeWhenTheContentDoesNotFit) {
    resizeChild(300, 40);
    const Container::ScrollInfo &info = box->getScrollInfoH();
    EXPECT_TRUE(info.scrollable);
    EXPECT_FALSE(box->getScrollInfoV().scrollable);
    EXPECT_EQ(box->getScrollInfoV().bar, nullptr);
    ASSERT_NE(info.bar, nullptr);
    EXPECT_STREQ(info.bar->getName(), "scroll-h");
    EXPECT_TRUE(info.bar->instanceOf(components::Panel::TYPE));
    EXPECT_EQ(info.bar->getElement(), "panel");
    EXPECT_TRUE(info.bar->hasClass("scroll-h"));
    EXPECT_EQ(info.bar->getZIndex(), 0x7fffffff);
    EXPECT_EQ(info.bar->getAnchor(), 0x0cU);
    EXPECT_EQ(info.bar->getParent(), box.get());
    EXPECT_EQ(box->getContentExtents().x, 300);
    EXPECT_EQ(info.scale, 100.0f / 300.0f);
    EXPECT_EQ(info.length, 33);
    EXPECT_EQ(info.bar->getComponentSize().absolute.x, 33);
}

TEST_F(ContainerScroll, TheVerticalBarIsLikewise) {
    resizeChild(50, 320);
    const Container::ScrollInfo &info = box->getScrollInfoV();
    EXPECT_TRUE(info.scrollable);
    ASSERT_NE(info.bar, nullptr);
    EXPECT_STREQ(info.bar->getName(), "scroll-v");
    EXPECT_TRUE(info.bar->hasClass("scroll-v"));
    EXPECT_EQ(info.bar->getAnchor(), 0x21U);
    EXPECT_EQ(info.scale, 0.25f);
    EXPECT_EQ(info.length, 20);
    EXPECT_EQ(info.bar->getComponentSize().absolute.y, 20);
}

TEST_F(ContainerScroll, BarsAreNotCounted) {
    resizeChild(300, 300);
    EXPECT_EQ(box->getChildCount(), 1U);
    EXPECT_GE(box->getChildIndex(box->getScrollInfoH().bar), 1);
    EXPECT_GE(box->getChildIndex(box->getScrollInfoV().bar), 1);
    EXPECT_FALSE(box->hasChild(box->getScrollInfoH().bar));
    const core::SmartPtr<Leaf> second(new Leaf("second"));
    box->addChild(second.get());
    EXPECT_EQ(box->getChildCount(), 2U);
    EXPECT_EQ(box->getChildAt(1), second.get()); // ahead of the bars
    box->removeChild(box->getScrollInfoH().bar);
    EXPECT_NE(box->getScrollInfoH().bar, nullptr);
}

TEST_F(ContainerScroll, BarsAreNoPartOfALayout) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    resizeChild(300, 300);
    ASSERT_NE(box->getScrollInfoH().bar, nullptr);
    EXPECT_FALSE(layout->hasComponent(box->getScrollInfoH().bar));
}

TEST_F(ContainerScroll, ABarHidesWhenTheContentFitsAgainAndTheOffsetFallsBack) {
    resizeChild(300, 40);
    box->visit(&skin());
    update();
    Component *bar = box->getScrollInfoH().bar;
    box->setScrollMask(3);
    box->handleEvent(DragEvent(Ray(), CursorPosition(), DragEvent::DRAG_MOVE, Vector2(30, 0)));
    EXPECT_EQ(box->getScrollOffset().x, -30);
    resizeChild(50, 40);
    EXPECT_FALSE(box->getScrollInfoH().scrollable);
    EXPECT_EQ(box->getScrollInfoH().bar, bar);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(box->getChildCount(), 1U);
    box->forceDirty(Component::DIRTY_POSITION);
    update();
    EXPECT_EQ(box->getScrollOffset().x, 0); // what setScrollOffset() last asked for
    resizeChild(300, 40);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(box->getScrollInfoH().bar, bar);
}

TEST_F(ContainerScroll, WithoutAMaskThereAreNoBars) {
    box->setScrollMask(0);
    resizeChild(300, 300);
    EXPECT_TRUE(box->isContentOutside());
    EXPECT_EQ(box->getScrollInfoH().bar, nullptr);
    EXPECT_EQ(box->getScrollInfoV().bar, nullptr);
    EXPECT_EQ(box->getScrollEnabled(), 0U);
    EXPECT_FALSE(box->isEventEnabled(UIEvent::ET_DRAG_EVENT));
}

TEST_F(ContainerScroll, OnlySettingAMaskTakesDragEvents) {
    EXPECT_FALSE(box->isEventEnabled(UIEvent::ET_DRAG_EVENT));
    box->setScrollMask(Container::SCROLL_VERTICAL);
    EXPECT_TRUE(box->isEventEnabled(UIEvent::ET_DRAG_EVENT));
    resizeChild(300, 300);
    EXPECT_EQ(box->getScrollInfoH().bar, nullptr);
    EXPECT_NE(box->getScrollInfoV().bar, nullptr);
    EXPECT_EQ(box->getScrollEnabled(), 2U);
}

TEST_F(ContainerScroll, ScrollEnabledLooksAtTheRightAndLowerEdges) {
    child->setPosition(Vector3(-60, 0, 0));
    resizeChild(100, 100);
    EXPECT_EQ(box->getScrollEnabled(), 2U); // it sticks out to the left, and below
    child->setPosition(Vector3(10, 0, 0));
    update();
    EXPECT_EQ(box->getScrollEnabled(), 3U);
}

TEST_F(ContainerScroll, ABarThatWasMadeWithoutViewsGetsItsViewWhenItIsNeeded) {
    resizeChild(300, 40);
    Component *bar = box->getScrollInfoH().bar;
    resizeChild(50, 40); // hidden, when the views are made
    box->visit(&skin());
    update();
    EXPECT_FALSE(bar->hasView());
    resizeChild(300, 40);
    ASSERT_TRUE(bar->hasView());
    EXPECT_EQ(bar->getView()->getParent(), box->getView()->getContent());
}

TEST_F(ContainerScroll, AScrollOffsetMovesTheChildrenAndMarksEverything) {
    update();
    Box outer("outer");
    outer.addChild(box.get());
    outer.clean();
    box->clean();
    child->clean();
    box->setScrollOffset(Vector2(-5, 6));
    EXPECT_EQ(box->dirty(), 0x13U);
    EXPECT_EQ(outer.dirty(), 0x26U);
    EXPECT_EQ(child->dirty(), 0x11U);
    EXPECT_EQ(box->getScrollOffset(), Vector2(-5, 6));
    update();
    EXPECT_EQ(child->getParentRelativePosition().x - child->getPosition().x, -5);
}

TEST_F(ContainerScroll, AbsoluteScrollingCountsFromTheStartOfTheContent) {
    resizeChild(300, 280);
    // min: 50 - 50 = 0 and 40 - 40 = 0; max: 50 - 250 = -200 and 40 - 240 = -200
    EXPECT_EQ(box->getScrollMin(), Vector2(0, 0));
    EXPECT_EQ(box->getScrollMax(), Vector2(-200, -200));
    box->scrollHorizontalAbsolute(20.5f);
    EXPECT_EQ(box->getScrollOffset(), Vector2(-21, 0));
    box->scrollVerticalAbsolute(30);
    EXPECT_EQ(box->getScrollOffset(), Vector2(-21, -30));
    EXPECT_EQ(box->getScrollAbsolute(), Vector2(21, 30));
    box->scrollAbsolute(Vector2(1, 2));
    EXPECT_EQ(box->getScrollOffset(), Vector2(-1, -2));
}

TEST_F(ContainerScroll, FractionalScrollingGoesFromEndToEnd) {
    resizeChild(300, 280);
    box->scrollHorizontalPercent(0.5f);
    EXPECT_EQ(box->getScrollOffset(), Vector2(-100, 0));
    box->scrollVerticalPercent(1);
    EXPECT_EQ(box->getScrollOffset(), Vector2(-100, -200));
    EXPECT_EQ(box->getScrollPercent(), Vector2(0.5f, 1));
    box->scrollPercent(Vector2(0.25f, 0.75f));
    EXPECT_EQ(box->getScrollOffset(), Vector2(-50, -150));
}

TEST_F(ContainerScroll, WithoutRoomTheFractionIsZero) {
    const Box empty("empty");
    EXPECT_EQ(empty.getScrollPercent(), Vector2(0, 0));
}

TEST_F(ContainerScroll, TheBarFollowsTheOffsetAndStaysInPlace) {
    resizeChild(50, 320);
    box->setScrollOffset(Vector2(0, -120));
    update();
    const Container::ScrollInfo &info = box->getScrollInfoV();
    EXPECT_EQ(info.position, 30); // (120 - 0) * 0.25
    EXPECT_EQ(info.bar->getComponentPosition().absolute, Vector2(0, 150));
    EXPECT_EQ(info.bar->getMinBound().y, box->getMinBound().y + 30);
}

TEST_F(ContainerScroll, TheVerticalMinimumServesTheHorizontalBarToo) {
    child->setPosition(Vector3(0, -16, 0));
    resizeChild(300, 40);
    ASSERT_EQ(box->getScrollMin().y, -16);
    box->setScrollOffset(Vector2(-60, 0));
    update();
    EXPECT_NEAR(box->getScrollInfoH().position, (60 + 16) / 3.0f, 1e-4f);
}

TEST_F(ContainerScroll, DraggingMovesTheContentWithinItsEnds) {
    box->setScrollMask(3);
    resizeChild(300, 280);
    const auto drag = [&](float x, float y) {
        const Vector2 delta(x, y);
        box->handleEvent(DragEvent(Ray(), CursorPosition(), DragEvent::DRAG_MOVE, delta));
    };
    drag(10, 20);
    EXPECT_EQ(box->getScrollOffset(), Vector2(0, 0)); // without a view
    box->visit(&skin());
    update();
    box->clean();
    drag(10, 20);
    EXPECT_EQ(box->getScrollOffset(), Vector2(-10, -20));
    EXPECT_EQ(box->dirty(), 0x13U);
    drag(-100, 1000);
    EXPECT_EQ(box->getScrollOffset(), Vector2(0, -200));
    box->setScrollMask(Container::SCROLL_HORIZONTAL);
    box->forceDirty(Component::DIRTY_CONTENT);
    update();
    drag(5, -5);
    EXPECT_EQ(box->getScrollOffset().x, -5);
}

TEST_F(ContainerScroll, DraggingLeavesTheBaseOffset) {
    box->setScrollMask(3);
    resizeChild(300, 40);
    box->visit(&skin());
    box->setScrollOffset(Vector2(-7, 0));
    update();
    box->handleEvent(DragEvent(Ray(), CursorPosition(), DragEvent::DRAG_MOVE, Vector2(30, 0)));
    EXPECT_EQ(box->getScrollOffset().x, -37);
    resizeChild(40, 40);
    box->forceDirty(Component::DIRTY_POSITION);
    update();
    EXPECT_EQ(box->getScrollOffset().x, -7);
}

TEST_F(ContainerScroll, TheClientAreaIsClosedAtAllSides) {
    box->setPadding(Vector4(1, 2, 3, 4));
    box->setBorder(Vector4(10, 10, 10, 10));
    update();
    EXPECT_TRUE(box->isClientArea(Vector2(-36, -29)));
    EXPECT_FALSE(box->isClientArea(Vector2(-36.5f, 0)));
    EXPECT_FALSE(box->isClientArea(Vector2(0, -29.5f)));
    EXPECT_TRUE(box->isClientArea(Vector2(38, 27)));
    EXPECT_FALSE(box->isClientArea(Vector2(38.5f, 0)));
    EXPECT_FALSE(box->isClientArea(Vector2(0, 27.5f)));
}

TEST_F(ContainerScroll, ClippingIsMarkedDownAndUpTheTreeWhenItChanges) {
    Box outer("outer");
    outer.addChild(box.get());
    update();
    outer.clean();
    box->clean();
    child->clean();
    box->setClipChildren(true);
    EXPECT_EQ(box->dirty(), 0U);
    box->setClipChildren(false);
    EXPECT_EQ(box->dirty(), 0x10U);
    EXPECT_EQ(child->dirty(), 0x10U);
    EXPECT_EQ(outer.dirty(), 0x20U);
    EXPECT_FALSE(box->getClipChildren());
}

TEST_F(ContainerScroll, AutoSizeCountsTheMarginsAsItDoes) {
    resizeChild(40, 30);
    box->setMargin(Vector4(1, 2, 3, 4));
    box->setPadding(Vector4(5, 6, 7, 8));
    box->setBorder(Vector4(1, 1, 1, 1));
    update();
    const Vector2 extents = box->getContentExtents();
    box->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    // the horizontal margins twice in the width, and once in the height
    EXPECT_EQ(box->getAutoSize(Vector2(999, 999)), extents + Vector2(12 + 16, 6 + 14));
    box->setAutoSize(Component::AUTO_SIZE_HEIGHT);
    EXPECT_EQ(box->getAutoSize(Vector2(999, 999)), Vector2(0, extents.y + 6 + 14));
    box->setAutoSize(Component::AUTO_SIZE_WIDTH);
    EXPECT_EQ(box->getAutoSize(Vector2(999, 999)), Vector2(extents.x + 12 + 16, 0));
}

TEST_F(ContainerScroll, AnAutoSizedContainerFollowsItsContent) {
    child->setAnchor(Component::ANCHOR_CENTER);
    box->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    resizeChild(60, 50);
    EXPECT_EQ(box->getSize(), Vector2(60, 50));
    EXPECT_EQ(box->getContainerSize(), Vector2(60, 50));
    resizeChild(20, 10);
    EXPECT_EQ(box->getSize(), Vector2(20, 10));
}

TEST_F(ContainerScroll, AnIdleContainerStaysClean) {
    resizeChild(300, 300);
    box->visit(&skin());
    for (int i = 0; i < 6; ++i)
        box->update();
    EXPECT_EQ(box->dirty(), 0U);
    EXPECT_EQ(child->dirty(), 0U);
    EXPECT_EQ(box->getScrollInfoH().bar->isDirty(0x7f), 0U);
}

TEST_F(ContainerScroll, ABarStandsInTheContentOfANewViewAlsoWhenItKeptItsOwn) {
    box->visit(&skin());
    resizeChild(300, 40);
    Component *bar = box->getScrollInfoH().bar;
    ASSERT_TRUE(bar->hasView());
    resizeChild(50, 40);
    const core::SmartPtr<ComponentView> dropped(box->getView());
    box->clearView();
    box->visit(&skin());
    ASSERT_NE(box->getView(), dropped.get());
    update();
    resizeChild(300, 40);
    ASSERT_EQ(box->getScrollInfoH().bar, bar);
    ASSERT_TRUE(bar->hasView());
    EXPECT_EQ(bar->getView()->getParent(), box->getView()->getContent());
    EXPECT_FALSE(bar->getView()->isHidden());
    EXPECT_EQ(box->getView()->getContent()->getChildCount(), 2U);
}

TEST_F(ContainerScroll, TheBarOfAWidgetThatWasTakenAwayAndBroughtBackStandsInItsContent) {
    const core::SmartPtr<Widget> widget(new Widget("widget", Vector2(100, 80), Vector2(0, 0)));
    const core::SmartPtr<Leaf> content(new Leaf("content"));
    content->setAnchor(Component::ANCHOR_TOP_LEFT);
    widget->addChild(content.get());
    UIManager &manager = UIManager::getSingleton();
    const auto resize = [&](float height) {
        content->setSize(Vector2(50, height));
        for (int i = 0; i < 3; ++i)
            frame();
    };
    show(*widget);
    resize(320);
    Component *bar = widget->getScrollInfoV().bar;
    ASSERT_NE(bar, nullptr);
    resize(40);
    ASSERT_FALSE(bar->isVisible());
    manager.removeWidget(widget.get());
    frame();
    ASSERT_FALSE(widget->hasView());
    show(*widget);
    ASSERT_TRUE(widget->hasView());
    resize(320);
    EXPECT_EQ(widget->getScrollInfoV().bar, bar);
    EXPECT_TRUE(bar->isVisible());
    ASSERT_TRUE(bar->hasView());
    EXPECT_EQ(bar->getView()->getParent(), widget->getView()->getContent());
    manager.removeWidget(widget.get());
    frame();
}

TEST_F(ContainerScroll, ABarThatIsToBeRemovedStaysAmongTheEntries) {
    resizeChild(300, 40);
    Component *bar = box->getScrollInfoH().bar;
    ASSERT_NE(bar, nullptr);
    box->clean();
    box->removeChild(bar);
    EXPECT_EQ(box->getScrollInfoH().bar, bar);
    EXPECT_EQ(box->getChildIndex(bar), 1);
    EXPECT_EQ(bar->getParent(), box.get());
    EXPECT_EQ(box->dirty(), 0U);
    box->removeChildAt(1); // not counted
    EXPECT_EQ(box->getChildIndex(bar), 1);
}

TEST_F(ContainerScroll, MeasuringBringsTheBarsUpToDateItself) {
    resizeChild(300, 40);
    Component *bar = box->getScrollInfoH().bar;
    ASSERT_EQ(bar->getSize().x, 33);
    child->setSize(Vector2(500, 40));
    box->updateContent();
    EXPECT_EQ(box->getScrollInfoH().length, 20);
    EXPECT_EQ(bar->getSize().x, 20); // in the same pass
    EXPECT_EQ(bar->isDirty(Component::DIRTY_POSITION), 0U);
}

TEST_F(ContainerScroll, TheViewIsMarkedWhenABarComesGoesOrChangesItsLength) {
    const auto isMarkedAt = [&](float width) {
        child->setSize(Vector2(width, 40));
        box->setClean(Component::DIRTY_VIEW);
        EXPECT_NE(box->isDirty(Component::DIRTY_CONTENT), 0U);
        box->updateContent();
        const bool marked = box->isDirty(Component::DIRTY_VIEW) != 0;
        update();
        return marked;
    };
    resizeChild(300, 40);
    EXPECT_FALSE(isMarkedAt(301)); // still 33 pixels
    EXPECT_TRUE(isMarkedAt(500));
    EXPECT_FALSE(isMarkedAt(499));
    EXPECT_TRUE(isMarkedAt(50)); // nothing to scroll
    EXPECT_TRUE(isMarkedAt(500));
}

TEST_F(ContainerScroll, ALayoutThatAHiddenContainerGetsWaitsUntilItIsShown) {
    update();
    const Vector3 place = child->getPosition();
    box->setVisible(false);
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->clean();
    box->forceDirty(Component::DIRTY_CONTENT);
    const unsigned int before = box->dirty();
    box->setLayout(layout.get());
    layout->addComponent(child.get());
    EXPECT_EQ(layout->getOwner(), box.get());
    EXPECT_EQ(layout->passes, 0);
    EXPECT_EQ(box->dirty(), before);
    EXPECT_EQ(child->getPosition(), place);
    box->setVisible(true);
    update();
    EXPECT_GT(layout->passes, 0);
    EXPECT_NE(child->getPosition(), place);
}

TEST_F(ContainerScroll, ALayoutOfAnotherContainerComesEmptyAndChangesItsOwner) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    Box first("first");
    const core::SmartPtr<Leaf> firsts(new Leaf("firsts"));
    first.setLayout(layout.get());
    first.addChild(firsts.get());
    ASSERT_EQ(layout->getComponentCount(), 1U);
    const int passes = layout->passes;
    box->forceDirty(Component::DIRTY_CONTENT);
    box->setLayout(layout.get());
    EXPECT_EQ(layout->getOwner(), box.get());
    EXPECT_EQ(layout->getComponentCount(), 0U);
    EXPECT_EQ(layout->passes, passes + 1);
    EXPECT_EQ(first.getLayout(), layout.get()); // which is not told
}

namespace {

unsigned int countBars(const nurel::ui::Container &container) {
    unsigned int count = 0;
    for (const Component *bar : {container.getScrollInfoH().bar, container.getScrollInfoV().bar}) {
        if (bar)
            count += 1 + countBars(static_cast<const nurel::ui::Container &>(*bar));
    }
    return count;
}

} // namespace

TEST_F(ContainerScroll, BarsThatNeedBarsThemselvesComeToAnEnd) {
    const core::SmartPtr<nurel::ui::css::CSSSkin> sheetSkin = new nurel::ui::css::CSSSkin("sheet");
    nurel::stream::MemoryInputStream sheet("sheet", "panel { padding: 8px; }");
    sheetSkin->setStyleSheet(nurel::ui::css::CSSParser().parse(&sheet));
    nurel::ui::SkinManager::getSingleton().setDefaultSkin(sheetSkin.get());
    const core::SmartPtr<nurel::ui::components::Panel> list = new nurel::ui::components::Panel("list");
    list->setSize(Vector2(100, 80));
    box->removeChild(child.get());
    list->addChild(child.get());
    child->setSize(Vector2(300, 300));
    const core::SmartPtr<nurel::ui::Widget> widget = new nurel::ui::Widget("widget");
    widget->addChild(list.get());
    nurel::ui::UIManager::getSingleton().addWidget(widget.get());
    for (int i = 0; i < 4; ++i)
        frame();
    EXPECT_GT(countBars(*list), 2U);
    EXPECT_LT(countBars(*list), 300U);
    log().take(logging::Level::ERROR); // told once for a process
}

} // namespace test
