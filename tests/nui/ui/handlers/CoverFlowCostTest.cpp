// What the motion of a cover flow costs.
#include "nui/ui/handlers/CoverFlowHandler.h"

#include "nui/ui/handlers/CoverFlowFixture.h"

#include "nengine/support/AllocationCounter.h"
#include "nui/ui/Layout.h"

#include <list>

using namespace nurel::ui;

namespace {

class CoverFlowCostTest : public test::CoverFlowFixture {};

class ManyEntries : public nurel::ui::handlers::DataProvider {
public:
    unsigned int getCount() override { return 10000; }
    void update(unsigned int, Component *) override { ++mUpdates; }
    int mUpdates = 0;
};

/// Counts how often any copy lays out.
class CountingLayout : public Layout {
public:
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<CountingLayout> copy(new CountingLayout);
        _clone(copy.get(), options);
        return copy.release();
    }

    static inline int PASSES = 0;

protected:
    void _layout(const std::list<Component *> &) const override { ++PASSES; }
};

} // namespace

TEST_F(CoverFlowCostTest, AllocatesNothingWhileItIsDraggedAndThrown) {
    const core::SmartPtr<ManyEntries> numbers(new ManyEntries);
    mFlow->SelectionCallbacks::removeCallbacks();
    mFlow->setExtraCount(3);
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(numbers.get());
    mFlow->setCurrent(5000, false);
    const auto throwLeft = [this] {
        moveTo(700, 300);
        press();
        for (int x = 700; x >= 100; x -= 20) {
            advance(1.0 / 64);
            moveTo(x, 300);
        }
        release();
        for (int i = 0; i < 200; ++i)
            tick(1.0 / 64);
    };
    throwLeft(); // buffers grow once
    const std::size_t before = test::getAllocationCount();
    const unsigned int current = mFlow->getCurrent();
    throwLeft();
    EXPECT_EQ(test::getAllocationCount() - before, 0u);
    EXPECT_GT(mFlow->getCurrent(), current + 10);
    EXPECT_EQ(mFlow->getState(), CoverFlowHandler::COVER_IDLE);
}

TEST_F(CoverFlowCostTest, AllocatesNothingAtTheEndsOfTheData) {
    const core::SmartPtr<ManyEntries> numbers(new ManyEntries);
    mFlow->SelectionCallbacks::removeCallbacks();
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(numbers.get());
    const auto pull = [this](float x) {
        fling(x);
        for (int i = 0; i < 100; ++i)
            tick(1.0 / 64);
    };
    for (const unsigned int entry : {0u, 9999u}) {
        mFlow->setCurrent(entry, false);
        for (const float x : {-90.0f, 90.0f, 90.0f}) // there, back, and beyond
            pull(x);
        const std::size_t before = test::getAllocationCount();
        for (const float x : {-90.0f, 90.0f, 90.0f})
            pull(x);
        EXPECT_EQ(test::getAllocationCount() - before, 0u) << entry;
        EXPECT_EQ(mFlow->getState(), CoverFlowHandler::COVER_IDLE);
    }
}

TEST_F(CoverFlowCostTest, LaysOutNothingInsideTheItemsThatItMoves) {
    mTemplate->setLayout(new CountingLayout);
    fill(5);
    begin();
    move(-20); // the spare item is shown
    frame();
    ASSERT_GT(CountingLayout::PASSES, 0);
    const int before = CountingLayout::PASSES;
    for (int i = 0; i < 20; ++i) {
        move(-1.5f);
        frame();
    }
    EXPECT_EQ(CountingLayout::PASSES, before);
    EXPECT_NE(centreX(), 0);
}
