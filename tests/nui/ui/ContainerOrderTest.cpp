// Children that come to a container behind which scroll bars stand find their places in its layout and its view without
// a search: compared with the search on random input.
#include "nui/ui/Container.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nui/ui/skins/DefaultSkin.h"

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace test {

namespace {

using nurel::scene::Frame;
using nurel::scene::Node;

int zIndexOf(const Frame &frame) {
    if (!frame.instanceOf(ComponentView::TYPE))
        return 0;
    const Component *component = static_cast<const ComponentView &>(frame).getComponent();
    return component ? component->getZIndex() : 0;
}

class ContainerOrder : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        box = new Box("box");
        box->setSize(Vector2(100, 100));
        layout = new NotingLayout;
        box->setLayout(layout.get());
        box->visit(&skin());
    }

    void TearDown() override {
        box = nullptr;
        layout = nullptr;
        EngineFixture::TearDown();
    }

    std::vector<const Frame *> views() const {
        std::vector<const Frame *> frames;
        for (const auto &frame : box->getView()->getContent()->getChildren())
            frames.push_back(frame.get());
        return frames;
    }

    std::vector<const Component *> laidOut() const {
        return {layout->getComponents().begin(), layout->getComponents().end()};
    }

    /// Adds a child and expects it where a search would have put it.
    void add(int zIndex, bool useLayout) {
        const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
        leaf->setZIndex(zIndex);
        leaf->setSize(Vector2(10, 10));
        std::vector<const Frame *> frames = views();
        std::vector<const Component *> components = laidOut();
        auto frame = frames.end();
        auto component = components.end();
        if (zIndex < box->getZIndexMax()) {
            frame = std::find_if(frames.begin(), frames.end(),
                                 [zIndex](const Frame *other) { return zIndexOf(*other) > zIndex; });
            component = std::find_if(components.begin(), components.end(),
                                     [zIndex](const Component *other) { return other->getZIndex() > zIndex; });
        }
        const auto place = frame - frames.begin();
        if (useLayout)
            components.insert(component, leaf.get());
        box->addChild(leaf.get(), useLayout);
        frames.insert(frames.begin() + place, leaf->getView());
        ASSERT_EQ(views(), frames);
        ASSERT_EQ(laidOut(), components);
    }

    core::SmartPtr<Box> box;
    core::SmartPtr<NotingLayout> layout;
};

} // namespace

TEST_F(ContainerOrder, IsThatOfASearch) {
    std::mt19937 random(3);
    const auto chance = [&random](unsigned int of) { return random() % of == 0; };
    unsigned int barsSeen = 0;
    for (int step = 0; step < 6000; ++step) {
        const unsigned int count = box->getChildCount();
        const auto any = [&] { return box->getChildAt(static_cast<unsigned int>(random() % count)); };
        if (count == 0 || chance(2))
            add(chance(100) ? Container::SCROLL_BAR_Z_INDEX : static_cast<int>(random() % 5) - 2, !chance(5));
        else if (chance(4))
            box->removeChild(any());
        else if (chance(6))
            any()->setZIndex(static_cast<int>(random() % 5) - 2);
        else if (chance(3))
            any()->setSize(chance(2) ? Vector2(500, 500) : Vector2(10, 10)); // bars come and go
        else if (chance(40))
            box->getView()->getContent()->appendChild(new Node("frame"));
        else if (chance(60))
            box->clearChildren();
        else
            box->update();
        if (box->getScrollInfoV().bar)
            ++barsSeen;
        ASSERT_FALSE(HasFatalFailure()) << step;
    }
    EXPECT_GT(barsSeen, 1000u);
}

TEST_F(ContainerOrder, HoldsForBarsThatHaveChangedTheirZIndexOrAreLaidOut) {
    add(0, true);
    box->getChildAt(0)->setSize(Vector2(500, 500));
    for (int i = 0; i < 3; ++i)
        box->update();
    ASSERT_NE(box->getScrollInfoV().bar, nullptr);
    add(0, true);
    layout->addComponent(box->getScrollInfoV().bar);
    add(0, true);
    add(-1, true);
    box->getScrollInfoH().bar->setZIndex(-5);
    add(0, true);
    box->update();
    add(0, true);
    add(-7, true);
    add(3, true);
    add(2, true);
}

} // namespace test
