#include "nui/ui/Layout.h"

#include "nui/ui/ManagerTest.h"

#include "nmain/core/CloningOptions.h"
#include "nmain/json/JSObject.h"

using namespace nurel::ui;

namespace {

/// Notes what it is asked to do.
class NotingLayout : public Layout {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    using Layout::clone;
    nurel::core::Object *clone(nurel::core::CloningOptions &options) const override {
        core::SmartPtr<NotingLayout> copy(new NotingLayout);
        _clone(copy.get(), options);
        return copy.release();
    }

    std::string names() const {
        std::string text;
        for (const Component *component : getComponents())
            text += component->getName();
        return text;
    }

    mutable int mLayouts = 0;
    int mParameters = 0;

protected:
    void _layout(const std::list<Component *> &components) const override {
        ++mLayouts;
        EXPECT_EQ(&components, &getComponents());
    }
    void _setParameters(const nurel::json::JSObject *) override { ++mParameters; }
};

constinit const core::Type NotingLayout::TYPE("NotingLayout", &Layout::TYPE);

class LayoutTest : public test::ManagerTest {
public:
    LayoutTest() : mPanel(new Panel("panel")), mLayout(new NotingLayout) {}

    core::SmartPtr<Panel> add(Container &parent, const char *name, int zIndex = 0, bool laidOut = true) {
        core::SmartPtr<Panel> child(new Panel(name));
        child->setZIndex(zIndex);
        parent.addChild(child.get(), laidOut);
        return child;
    }

    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<NotingLayout> mLayout;
};

} // namespace

TEST_F(LayoutTest, StartsWithoutOwnerAndComponents) {
    EXPECT_EQ(mLayout->getOwner(), nullptr);
    EXPECT_EQ(mLayout->getComponentCount(), 0u);
    EXPECT_EQ(mLayout->getIgnoreCount(), 0u);
    EXPECT_STREQ(Layout::TYPE.getName(), "Layout");
    EXPECT_EQ(Layout::TYPE.getParent(), &nurel::core::Object::TYPE);
}

TEST_F(LayoutTest, LaysOutOnlyForAnOwner) {
    mLayout->layout();
    EXPECT_EQ(mLayout->mLayouts, 0);
    mPanel->setLayout(mLayout.get());
    mLayout->mLayouts = 0;
    mLayout->layout();
    EXPECT_EQ(mLayout->mLayouts, 1);
}

TEST_F(LayoutTest, TakesItsOwnerFromTheContainerAndStartsEmpty) {
    const core::SmartPtr<Panel> stray(new Panel("stray"));
    mLayout->addComponent(stray.get());
    mPanel->setLayout(mLayout.get());
    EXPECT_EQ(mLayout->getOwner(), mPanel.get());
    EXPECT_EQ(mLayout->getComponentCount(), 0u);
}

TEST_F(LayoutTest, TakesTheChildrenThatAreAddedUnderItAndNoOthers) {
    const auto before = add(*mPanel, "before");
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a");
    const auto free = add(*mPanel, "f", 0, false);
    EXPECT_EQ(mLayout->names(), "a");
    EXPECT_TRUE(mLayout->hasComponent(a.get()));
    EXPECT_FALSE(mLayout->hasComponent(free.get()));
    EXPECT_EQ(mLayout->getIgnoreCount(), 2u);
    mPanel->removeChild(a.get());
    EXPECT_EQ(mLayout->names(), "");
}

TEST_F(LayoutTest, OrdersByZIndexAndArrivalWithoutAnOwner) {
    const int zIndexes[] = {5, 1, 5, 3, 1};
    std::vector<core::SmartPtr<Panel>> panels;
    for (int i = 0; i < 5; ++i) {
        panels.emplace_back(new Panel(std::string(1, static_cast<char>('a' + i)).c_str()));
        panels.back()->setZIndex(zIndexes[i]);
        mLayout->addComponent(panels.back().get());
    }
    EXPECT_EQ(mLayout->names(), "bedac");
}

TEST_F(LayoutTest, AppendsWhatIsNotBelowTheOwnersHighestZIndex) {
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a", 2);
    const auto b = add(*mPanel, "b", 1);
    const auto c = add(*mPanel, "c", 2);
    EXPECT_EQ(mLayout->names(), "bac");
    // The list is not sorted again, so what is appended then stands behind one of a higher z-index.
    a->setZIndex(9);
    mPanel->removeChild(c.get());
    EXPECT_EQ(mLayout->names(), "ba");
}

TEST_F(LayoutTest, IgnoresNullAndWhatItHasAlready) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    mLayout->addComponent(panel.get());
    mLayout->addComponent(panel.get());
    mLayout->addComponent(nullptr);
    EXPECT_EQ(mLayout->names(), "p");
    EXPECT_EQ(mLayout->getComponentCount(), 1u);
    mLayout->removeComponent(mPanel.get());
    mLayout->removeComponent(nullptr);
    EXPECT_EQ(mLayout->names(), "p");
    EXPECT_FALSE(mLayout->hasComponent(nullptr));
}

TEST_F(LayoutTest, AnswersIsIgnoredTheWrongWayRound) {
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a");
    EXPECT_TRUE(mLayout->isIgnored(a.get()));
    mLayout->addIgnore(a.get());
    EXPECT_FALSE(mLayout->isIgnored(a.get()));
    EXPECT_FALSE(mLayout->hasComponent(a.get()));
    EXPECT_EQ(mLayout->getIgnoreCount(), 1u);
    mLayout->clearIgnores();
    EXPECT_TRUE(mLayout->isIgnored(a.get()));
    EXPECT_TRUE(mLayout->hasComponent(a.get()));
    EXPECT_EQ(mLayout->getIgnoreCount(), 0u);
}

TEST_F(LayoutTest, ClearIgnoresTakesAllCountedChildrenInTheirOrder) {
    mPanel->setLayout(mLayout.get());
    mPanel->setSize({100, 100});
    const auto a = add(*mPanel, "a", 0, false);
    const auto b = add(*mPanel, "b", -1, false);
    place(*a, 0, 0, 500, 500);
    mPanel->update(); // makes scroll bars
    ASSERT_NE(mPanel->getScrollInfoH().bar, nullptr);
    mLayout->clearIgnores();
    EXPECT_EQ(mLayout->names(), "ba");
    const core::SmartPtr<NotingLayout> unowned(new NotingLayout);
    unowned->addComponent(a.get());
    unowned->clearIgnores();
    EXPECT_EQ(unowned->getComponentCount(), 0u);
}

TEST_F(LayoutTest, ClearComponentsKeepsTheOwner) {
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a");
    mLayout->clearComponents();
    EXPECT_EQ(mLayout->getComponentCount(), 0u);
    EXPECT_EQ(mLayout->getOwner(), mPanel.get());
}

TEST_F(LayoutTest, PassesOnParametersThatAreAnObject) {
    const auto set = [&](const char *text) {
        const std::unique_ptr<nurel::json::JSObject> json(nurel::json::JSObject::parse(text));
        mLayout->setParameters(json.get());
    };
    mLayout->setParameters(nullptr);
    set("[]");
    set("\"text\"");
    set("1");
    EXPECT_EQ(mLayout->mParameters, 0);
    set("{}");
    EXPECT_EQ(mLayout->mParameters, 1);
}

TEST_F(LayoutTest, CloneTakesTheOwnersCopyForItsOwner) {
    mPanel->setLayout(mLayout.get());
    const core::SmartPtr<Panel> other(new Panel("other"));
    nurel::core::CloningOptions options;
    options.setCloned(mPanel.get(), other.get());
    const core::SmartPtr<nurel::core::Object> copy(mLayout->clone(options));
    EXPECT_EQ(static_cast<NotingLayout &>(*copy).getOwner(), other.get());

    nurel::core::CloningOptions unrelated;
    const core::SmartPtr<nurel::core::Object> stray(mLayout->clone(unrelated));
    EXPECT_EQ(static_cast<NotingLayout &>(*stray).getOwner(), nullptr);
    mLayout->_clone(other.get(), options); // no layout: left alone
    mLayout->_clone(nullptr, options);
}

TEST_F(LayoutTest, IsClonedWithItsContainer) {
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a");
    const auto free = add(*mPanel, "f", 0, false);
    const core::SmartPtr<nurel::core::Object> copy(mPanel->clone());
    const auto *layout = static_cast<NotingLayout *>(static_cast<Panel &>(*copy).getLayout());
    ASSERT_NE(layout, nullptr);
    EXPECT_NE(layout, mLayout.get());
    EXPECT_EQ(layout->getOwner(), copy.get());
    EXPECT_EQ(layout->names(), "a");
    EXPECT_FALSE(layout->hasComponent(a.get()));
}

TEST_F(LayoutTest, LosesAnOwnerThatDies) {
    mPanel->setLayout(mLayout.get());
    add(*mPanel, "a");
    mPanel = nullptr;
    EXPECT_EQ(mLayout->getOwner(), nullptr);
    EXPECT_EQ(mLayout->getComponentCount(), 0u);
    mLayout->layout();
    mLayout->clearIgnores();
}

TEST_F(LayoutTest, LosesAnOwnerThatTakesAnotherLayout) {
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a");
    mPanel->setLayout(nullptr);
    EXPECT_EQ(mLayout->getOwner(), nullptr);
    EXPECT_EQ(mLayout->getComponentCount(), 0u);
}

TEST_F(LayoutTest, ForgetsAComponentOfNobodyThatDies) {
    core::SmartPtr<Panel> stray(new Panel("stray"));
    const core::SmartPtr<Panel> kept(new Panel("kept"));
    const core::SmartPtr<NotingLayout> second(new NotingLayout);
    const core::SmartPtr<NotingLayout> third(new NotingLayout);
    for (NotingLayout *layout : {mLayout.get(), second.get(), third.get()}) {
        layout->addComponent(stray.get());
        layout->addComponent(kept.get());
    }
    second->clearComponents();
    stray = nullptr;
    EXPECT_EQ(mLayout->names(), "kept");
    EXPECT_EQ(second->names(), "");
    EXPECT_EQ(third->names(), "kept");
}

TEST_F(LayoutTest, ForgetsTheChildrenOfAContainerThatSharesItAndDies) {
    mPanel->setLayout(mLayout.get());
    const core::SmartPtr<Panel> later(new Panel("later"));
    later->setLayout(mLayout.get()); // the owner from here on
    add(*mPanel, "child");
    EXPECT_EQ(mLayout->names(), "child");
    mPanel = nullptr;
    EXPECT_EQ(mLayout->names(), "");
    EXPECT_EQ(mLayout->getOwner(), later.get());
}

TEST_F(LayoutTest, MayDieBeforeItsStrangers) {
    const core::SmartPtr<Panel> stray(new Panel("stray"));
    mLayout->addComponent(stray.get());
    const core::SmartPtr<NotingLayout> other(new NotingLayout);
    other->addComponent(stray.get());
    mLayout = nullptr;
    EXPECT_EQ(other->names(), "stray");
    EXPECT_EQ(stray->getRefCount(), 1u);
}

TEST_F(LayoutTest, NeverCountsFewerThanNoneIgnored) {
    mPanel->setLayout(mLayout.get());
    const core::SmartPtr<Panel> stray(new Panel("stray"));
    mLayout->addComponent(stray.get());
    EXPECT_EQ(mLayout->getIgnoreCount(), 0u);
}

TEST_F(LayoutTest, StaysInItsOrderWhenAZIndexChangesLater) {
    mPanel->setLayout(mLayout.get());
    const auto a = add(*mPanel, "a", 2);
    const auto b = add(*mPanel, "b", 1);
    b->setZIndex(9);
    mPanel->update(); // sorts the children
    ASSERT_EQ(mPanel->getChildAt(0), a.get());
    EXPECT_EQ(mLayout->names(), "ba");
    const auto c = add(*mPanel, "c", 9); // not below the highest: appended
    EXPECT_EQ(mLayout->names(), "bac");
    const auto d = add(*mPanel, "d", 3); // ahead of the first with a greater one
    EXPECT_EQ(mLayout->names(), "dbac");
}
