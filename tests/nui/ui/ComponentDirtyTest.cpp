#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nui/ui/skins/DefaultSkin.h"

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace test {

namespace {

/// grandparent > parent > (child > grandchild, sibling), all clean.
class ComponentDirty : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        grandparent = new Box("grandparent");
        parent = new Box("parent");
        child = new Box("child");
        grandchild = new Leaf("grandchild");
        sibling = new Leaf("sibling");
        grandparent->addChild(parent.get());
        parent->addChild(child.get());
        parent->addChild(sibling.get());
        child->addChild(grandchild.get());
        clean();
    }

    void TearDown() override {
        grandchild = nullptr;
        sibling = nullptr;
        child = nullptr;
        parent = nullptr;
        grandparent = nullptr;
        EngineFixture::TearDown();
    }

    void clean() {
        grandparent->clean();
        parent->clean();
        child->clean();
        grandchild->clean();
        sibling->clean();
    }

    /// The flags of grandparent, parent, child, grandchild and sibling, in hexadecimal.
    std::string flags() const {
        char text[64];
        std::snprintf(text, sizeof text, "%x %x %x %x %x", grandparent->dirty(), parent->dirty(), child->dirty(),
                      grandchild->dirty(), sibling->dirty());
        return text;
    }

    core::SmartPtr<Box> grandparent;
    core::SmartPtr<Box> parent;
    core::SmartPtr<Box> child;
    core::SmartPtr<Leaf> grandchild;
    core::SmartPtr<Leaf> sibling;
};

} // namespace

TEST_F(ComponentDirty, TheGeometryInvalidationSpreadsUpAndDown) {
    child->setDirty(0x01);
    // The bit for content below is carried on, so every ancestor has it.
    EXPECT_EQ(flags(), "26 26 11 11 0");
}

TEST_F(ComponentDirty, AChangedStateGoesUpAlone) {
    child->setDirty(0x10);
    EXPECT_EQ(flags(), "20 20 10 0 0");
}

TEST_F(ComponentDirty, AChangedStyleGoesUpAlone) {
    child->setDirty(0x18);
    EXPECT_EQ(flags(), "20 20 18 0 0");
}

TEST_F(ComponentDirty, ChangedContentStaysWhereItIs) {
    child->setDirty(0x02);
    EXPECT_EQ(flags(), "0 0 2 0 0");
}

TEST_F(ComponentDirty, NothingIsNothing) {
    child->setDirty(0);
    EXPECT_EQ(flags(), "0 0 0 0 0");
}

TEST_F(ComponentDirty, AllOfItSpreadsLikeTheGeometry) {
    child->setDirty(0x7f);
    EXPECT_EQ(flags(), "26 26 7f 11 0");
}

TEST_F(ComponentDirty, TheClimbEndsAtTheFirstAncestorThatHasTheBits) {
    parent->forceDirty(0x20);
    child->setDirty(0x10);
    EXPECT_EQ(flags(), "0 20 10 0 0");
}

TEST_F(ComponentDirty, BitsThatTheParentHasAreNotPassedUp) {
    parent->forceDirty(0x02);
    child->setDirty(0x01);
    EXPECT_EQ(flags(), "20 22 11 11 0");
    clean();
    parent->forceDirty(0x20);
    child->setDirty(0x01);
    // 0x04 joins 0x02 on the way
    EXPECT_EQ(flags(), "6 26 11 11 0");
}

TEST_F(ComponentDirty, EachDirectionGoesItsOwnWay) {
    child->setDirty__(0x08, Component::DIRTY_SELF);
    EXPECT_EQ(flags(), "0 0 8 0 0");
    clean();
    child->setDirty__(0x08, Component::DIRTY_UP);
    EXPECT_EQ(flags(), "8 8 0 0 0");
    clean();
    parent->setDirty__(0x08, Component::DIRTY_DOWN);
    EXPECT_EQ(flags(), "0 0 8 8 8");
    clean();
    parent->setDirty__(0x7f, Component::DIRTY_SELF | Component::DIRTY_DOWN);
    EXPECT_EQ(flags(), "0 7f 7f 7f 7f");
}

TEST_F(ComponentDirty, ContentOnTheWayUpBringsChildContentWhichGoesDownToo) {
    child->setDirty__(0x02, Component::DIRTY_UP | Component::DIRTY_DOWN);
    EXPECT_EQ(flags(), "6 6 0 6 0");
}

TEST_F(ComponentDirty, ForceDirtyTellsNobody) {
    child->forceDirty(0x13);
    EXPECT_EQ(flags(), "0 0 13 0 0");
    EXPECT_EQ(child->isDirty(0x11), 0x11U);
    EXPECT_EQ(child->isClean(0x2f), 0x2cU);
}

TEST_F(ComponentDirty, APositionThatStaysDirtyKeepsTheViewDirty) {
    child->forceDirty(0x13);
    child->setClean(0x12);
    EXPECT_EQ(child->dirty(), 0x11U);
    child->setClean(0x11);
    EXPECT_EQ(child->dirty(), 0U);
}

TEST_F(ComponentDirty, AZIndexMarksTheParentAndItsChain) {
    child->setZIndex(3);
    EXPECT_EQ(flags(), "20 40 0 0 0");
    EXPECT_EQ(parent->getZIndexMax(), 3);
    clean();
    grandparent->setZIndex(4); // without a parent
    EXPECT_EQ(grandparent->getZIndex(), 4);
    EXPECT_EQ(flags(), "0 0 0 0 0");
}

TEST_F(ComponentDirty, UpdateClearsEverythingOfAComponentWithAView) {
    grandparent->visit(&skin());
    for (int i = 0; i < 4; ++i)
        grandparent->update();
    EXPECT_EQ(flags(), "0 0 0 0 0");
}

TEST_F(ComponentDirty, WithoutAViewTheViewFlagsStay) {
    sibling->forceDirty(0x7f);
    sibling->update();
    EXPECT_EQ(sibling->dirty(), 0x18U);
}

namespace {

/// Counts what an update calls, and may raise the position again.
class Counting : public Leaf {
public:
    using Leaf::Leaf;
    void updatePosition() override {
        calls += 'p';
        Leaf::updatePosition();
        if (grows-- > 0)
            size = Vector2(size.x + 1, size.y);
        if (again-- > 0)
            forceDirty(DIRTY_POSITION);
    }
    void updateContent() override {
        calls += 'c';
        Leaf::updateContent();
    }
    void updateView() override {
        calls += 'v';
        Leaf::updateView();
    }
    Vector2 getAutoSize(const Vector2 &) override { return size; }

    std::string calls;
    Vector2 size = Vector2(10, 10);
    int again = 0;
    int grows = 0;
};

} // namespace

TEST_F(ComponentDirty, UpdateGoesPositionContentView) {
    Counting leaf("leaf");
    leaf.update();
    EXPECT_EQ(leaf.calls, "pcv");
    leaf.clean();
    leaf.calls.clear();
    leaf.update();
    EXPECT_EQ(leaf.calls, "c"); // the content always
}

TEST_F(ComponentDirty, UpdateEndsAfterThreePassesWithTheFlagStillSet) {
    Counting leaf("leaf");
    leaf.again = 10;
    leaf.update();
    EXPECT_EQ(leaf.calls, "pcvpcvpcv");
    EXPECT_NE(leaf.isDirty(Component::DIRTY_POSITION), 0U);
}

TEST_F(ComponentDirty, AChangedAutoSizeIsWorkedOutOnceMore) {
    Counting leaf("leaf");
    leaf.setAutoSize(Component::AUTO_SIZE_WIDTH);
    leaf.update();
    EXPECT_EQ(leaf.calls, "pcvpcv"); // 0 to 10 wide in the first pass
    leaf.clean();
    leaf.calls.clear();
    leaf.size = Vector2(20, 10);
    leaf.forceDirty(Component::DIRTY_POSITION);
    leaf.grows = 3;
    leaf.update();
    EXPECT_EQ(leaf.calls, "pcpcv"); // it grew in the second pass too, which is not looked at
}

TEST_F(ComponentDirty, AHiddenComponentOnlyRefreshesItsView) {
    Counting leaf("leaf");
    leaf.update();
    leaf.setVisible(false);
    leaf.clean();
    leaf.calls.clear();
    leaf.forceDirty(0x7f);
    leaf.update();
    EXPECT_EQ(leaf.calls, "v");
    EXPECT_EQ(leaf.dirty(), 0x7fU);
    leaf.clean();
    leaf.calls.clear();
    leaf.forceDirty(0x24);
    leaf.update();
    EXPECT_EQ(leaf.calls, "");
    EXPECT_EQ(leaf.dirty(), 0x24U);
}

TEST_F(ComponentDirty, AComponentHiddenByItsParentIsUpdatedAllTheSame) {
    Counting leaf("leaf");
    leaf.setParentVisible(false);
    leaf.update();
    EXPECT_EQ(leaf.calls, "pcv");
}

TEST_F(ComponentDirty, ABatchOfSettersMarksEachAncestorOnce) {
    child->setDirty(0x01);
    EXPECT_EQ(flags(), "26 26 11 11 0");
    grandparent->clean();
    sibling->setDirty(0x01); // the parent has it all: the chain is not climbed again
    EXPECT_EQ(flags(), "0 26 11 11 11");
}

#ifndef NDEBUG
TEST_F(ComponentDirty, AnotherThreadIsNoticedOnce) {
    std::thread([this] {
        sibling->setDirty(0x10);
        sibling->setDirty(0x10);
    }).join();
    // Once in a process: a test before this one may have used it up.
    const std::vector<std::string> lines = log().take(logging::Level::WARN);
    EXPECT_LE(lines.size(), 1U);
    for (const std::string &line : lines)
        EXPECT_EQ(line, "sibling(Component) is used by another thread than the one that renders");
}
#endif

} // namespace test
