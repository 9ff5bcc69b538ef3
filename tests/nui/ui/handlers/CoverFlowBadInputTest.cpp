// What a cover flow makes of data, sizes, clocks and callbacks that make no sense.
#include "nui/ui/handlers/CoverFlowHandler.h"

#include "nui/ui/handlers/CoverFlowFixture.h"

#include <limits>
#include <stdexcept>

using namespace nurel::ui;
using nurel::ui::handlers::DataProvider;

namespace {

class CoverFlowBadInputTest : public test::CoverFlowFixture {
public:
    int state() const { return mFlow->getState(); }

    /// A drag to each side, each as far as several steps, and what follows from it.
    void dragAround() {
        for (const float x : {-30.0f, -250.0f, 30.0f, 250.0f}) {
            fling(x);
            EXPECT_TRUE(rest());
        }
    }

    /// Whether every item stands in a slot.
    bool isPlaced() {
        for (unsigned int i = 0; i < container().getChildCount(); ++i) {
            const float x = container().getChildAt(i)->getComponentPosition().absolute.x;
            if (container().getChildAt(i)->isVisible() && std::abs(x - 200 * std::round(x / 200)) > 1e-2f)
                return false;
        }
        return true;
    }
};

/// Looks empty, or has another number of entries whenever it is asked.
class Nonsense : public DataProvider {
public:
    unsigned int getCount() override {
        constexpr unsigned int COUNTS[] = {0xffffffff, 0, 3, 1, 0x80000000, 2};
        return COUNTS[mAsked++ % 6];
    }
    void update(unsigned int, Component *) override {}

private:
    unsigned int mAsked = 0;
};

/// Is copied as a handler of events that is no component, or as nothing.
class Unlikely : public test::Cover {
public:
    explicit Unlikely(bool isNull) : mIsNull(isNull) {}

    using nurel::core::Object::clone;
    nurel::core::Object *clone(core::CloningOptions &) const override {
        return mIsNull ? nullptr : new UIEventHandler("none");
    }

private:
    const bool mIsNull;
};

/// Does something the first time that it is copied.
class Meddling : public test::Cover {
public:
    using nurel::core::Object::clone;
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        if (const std::function<void()> act = std::exchange(mOnClone, nullptr))
            act();
        return Cover::clone(options);
    }

    mutable std::function<void()> mOnClone;
};

class Failing : public test::Cover {
public:
    using nurel::core::Object::clone;
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        if (mClonesLeft-- == 0)
            throw std::runtime_error("no more");
        return Cover::clone(options);
    }

    mutable int mClonesLeft = 3;
};

} // namespace

// --- data ---

TEST_F(CoverFlowBadInputTest, IsDraggedWithoutAnyItems) {
    begin();
    tick(0.125);
    move(-50);
    end();
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    mFlow->refresh();
    mFlow->updateSlots();
    EXPECT_EQ(mFlow->setCurrent(0, true), 0xffffffffu);
    EXPECT_EQ(selected(), (Indexes{0xffffffff}));
}

TEST_F(CoverFlowBadInputTest, IsDraggedWithoutAnyEntries) {
    mEntries->mCount = 0;
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(mEntries.get());
    frame();
    begin();
    move(-150);
    tick(0.5);
    end();
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    dragAround(); // who coasts sets the current one, which is none
    EXPECT_EQ(selected(), (Indexes{0xffffffff}));
    mEntries->mCount = 4;
    mFlow->refresh();
    EXPECT_TRUE(isPlaced());
    expectPlace(3, 0, 0, 1);
    EXPECT_EQ(mFlow->getCurrent(), 3u);
}

TEST_F(CoverFlowBadInputTest, BearsDataThatGoesWhileItIsDragged) {
    fill(5);
    begin();
    tick(0.125);
    advance(0.125);
    move(-50);
    mEntries->mCount = 0;
    mFlow->refresh();
    mEntries->updates();
    move(-60);
    move(300);
    end();
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 0xffffffffu);
    EXPECT_EQ(mEntries->updates(), Indexes());
    dragAround();
    EXPECT_EQ(selected(), Indexes());
    mEntries->mCount = 2;
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 1u);
    EXPECT_TRUE(isPlaced());
    expectPlace(1, 0, 0, 1);
}

TEST_F(CoverFlowBadInputTest, BearsDataThatGoesWhileItCoasts) {
    fill(5);
    fling(-90);
    tick(0);
    mEntries->mCount = 0;
    tick(0.125); // the next entry is not there any more
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 0xffffffffu);
    for (unsigned int i = 0; i < container().getChildCount(); ++i)
        EXPECT_FALSE(container().getChildAt(i)->isVisible());
}

TEST_F(CoverFlowBadInputTest, NeverAsksForAnEntryThatIsNotThere) {
    fill(5);
    mEntries->mOnUpdate = [this](unsigned int index, Component *) { EXPECT_LT(index, mEntries->mCount); };
    for (const unsigned int count : {10u, 3u, 1u, 2u, 0u, 7u}) {
        mEntries->mCount = count;
        mFlow->refresh();
        dragAround();
        EXPECT_TRUE(isPlaced());
    }
}

TEST_F(CoverFlowBadInputTest, BearsCountsThatMakeNoSense) {
    const core::SmartPtr<Nonsense> nonsense(new Nonsense);
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(nonsense.get());
    frame();
    for (int i = 0; i < 12; ++i) {
        mFlow->refresh();
        mFlow->setCurrent(0xffffffff - static_cast<unsigned int>(i), true);
        dragAround();
    }
}

TEST_F(CoverFlowBadInputTest, CountsToTheLargestNumberOfEntries) {
    mEntries->mCount = 0xffffffff;
    fill(0xffffffff);
    EXPECT_EQ(mFlow->getCurrent(), 0xfffffffeu);
    EXPECT_EQ(mFlow->setCurrent(0x7fffffff, false), 0x7fffffffu);
    EXPECT_EQ(mEntries->updates(), (Indexes{0x7ffffffd, 0x7ffffffe, 0x7fffffff, 0x80000000, 0x80000001}));
    fling(-400);
    EXPECT_TRUE(rest());
    EXPECT_GT(mFlow->getCurrent(), 0x7fffffffu);
}

TEST_F(CoverFlowBadInputTest, IsEmptyWithATemplateThatMakesNoComponents) {
    for (const bool isNull : {true, false}) {
        const core::SmartPtr<Unlikely> unlikely(new Unlikely(isNull));
        fill();
        mFlow->setItemTemplate(unlikely.get());
        EXPECT_EQ(container().getChildCount(), 0u);
        dragAround();
    }
}

TEST_F(CoverFlowBadInputTest, IsEmptyWhenATemplateFails) {
    fill(5);
    const core::SmartPtr<Failing> failing(new Failing);
    EXPECT_THROW(mFlow->setItemTemplate(failing.get()), std::runtime_error);
    EXPECT_EQ(container().getChildCount(), 0u);
    EXPECT_EQ(mFlow->getCurrentElement(), nullptr);
    dragAround();
    failing->mClonesLeft = 100;
    mFlow->setExtraCount(1);
    EXPECT_EQ(container().getChildCount(), 4u);
}

TEST_F(CoverFlowBadInputTest, GoesOnAfterAProviderThatFails) {
    fill(5);
    mEntries->mOnUpdate = [](unsigned int, Component *) { throw std::runtime_error("no data"); };
    EXPECT_THROW(mFlow->refresh(), std::runtime_error);
    begin();
    EXPECT_THROW(move(-30), std::runtime_error);
    mEntries->mOnUpdate = nullptr;
    mFlow->refresh();
    EXPECT_EQ(mEntries->updates().size(), 1u + 1u + 5u);
    move(-100);
    end();
    EXPECT_TRUE(rest());
    EXPECT_TRUE(isPlaced());
}

// --- sizes and clocks ---

TEST_F(CoverFlowBadInputTest, StandsInOnePlaceWithoutAWidth) {
    container().setSize({0, 0});
    fill(5);
    for (int entry = 3; entry <= 7; ++entry)
        EXPECT_EQ(find(entry)->getComponentPosition().absolute.x, 0);
    dragAround();
    EXPECT_EQ(centreX(), 0);
}

TEST_F(CoverFlowBadInputTest, DoesNotMoveItemsWithoutAWidth) {
    mTemplate->setSize({0, 0});
    fill(5);
    ASSERT_EQ(mFlow->getCurrentElement()->getSize().x, 0);
    dragAround();
    EXPECT_EQ(mFlow->getCurrent(), 5u);
    EXPECT_TRUE(isPlaced());
    EXPECT_EQ(selected(), Indexes());
}

TEST_F(CoverFlowBadInputTest, WaitsForAClockThatStandsStill) {
    fill(5);
    begin();
    for (int i = 0; i < 5; ++i) {
        move(-15);
        frame();
    }
    end();
    for (int i = 0; i < 1000; ++i)
        frame();
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_TRUE(std::isfinite(centreX()));
    EXPECT_TRUE(rest()); // when the clock goes on
    EXPECT_TRUE(isPlaced());
}

TEST_F(CoverFlowBadInputTest, EndsTheMotionWhenTheClockJumps) {
    fill(5);
    fling(-30);
    tick(0);
    tick(1e9); // at rest long since, where it was
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_EQ(mFlow->getCurrent(), 5u);
    tick(1e9);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    EXPECT_EQ(centreX(), 0);
    mFlow->setElasticDeceleration(0);
    fling(-30);
    tick(0);
    tick(1e9); // beyond all data
    EXPECT_EQ(mFlow->getCurrent(), 9u);
    EXPECT_TRUE(rest());
    EXPECT_TRUE(isPlaced());
}

TEST_F(CoverFlowBadInputTest, ComesToRestWithElasticValuesThatMakeNoSense) {
    constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    for (const float value : {NOT_A_NUMBER, INFINITE, -INFINITE, -1.0f, 0.0f, 1e30f}) {
        const core::SmartPtr<CoverFlowHandler> flow = mFlow;
        fill(5);
        mFlow->setElasticRecoveryTime(0.25f);
        mFlow->setElasticSpeed(value, 1000);
        dragAround();
        mFlow->setElasticSpeed(50, value);
        dragAround();
        mFlow->setElasticSpeed(50, 1000);
        mFlow->setElasticDeceleration(value);
        dragAround();
        mFlow->setElasticDeceleration(1000);
        if (value != INFINITE && value != 1e30f) {
            mFlow->setElasticRecoveryTime(value);
            dragAround();
        }
        EXPECT_TRUE(std::isfinite(centreX())) << value;
    }
}

TEST_F(CoverFlowBadInputTest, BearsMovesThatAreNoNumbers) {
    fill(5);
    for (const float x : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 3e38f}) {
        begin();
        tick(0.125);
        advance(0.125);
        move(x);
        move(-x);
        move(5);
        end();
        EXPECT_TRUE(rest());
        EXPECT_TRUE(std::isfinite(centreX()));
    }
    dragAround();
    EXPECT_TRUE(isPlaced());
}

TEST_F(CoverFlowBadInputTest, GoesOneStepForAMoveWithoutEnd) {
    fill(5);
    begin();
    tick(0.125);
    advance(0.125);
    move(std::numeric_limits<float>::infinity());
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 4u);
    EXPECT_TRUE(isPlaced());
}

TEST_F(CoverFlowBadInputTest, AsksForEachItemOnceWhileAnAnimationIsOpen) {
    fill(5);
    manager().beginAnimation();
    mFlow->setCurrent(1, false); // the item on the far left has no entry, but is not hidden yet
    EXPECT_EQ(mEntries->updates(), (Indexes{0, 1, 2, 3}));
    manager().cancelAnimation();
}

// --- callbacks ---

TEST_F(CoverFlowBadInputTest, MayEndInItsOwnCallbacks) {
    for (const bool isCoasting : {false, true}) {
        if (!mFlow) {
            mFlow = new CoverFlowHandler;
            mWidget->addChild(mFlow->getContainer());
            frame();
        }
        fill(5);
        mFlow->SelectionCallbacks::subscribeCallback([this](CoverFlowHandler *) {
            mFlow = nullptr;
            return false;
        });
        const core::SmartPtr<Panel> kept(mFlow->getContainer());
        begin();
        tick(0.125);
        advance(0.125);
        move(isCoasting ? -90.0f : -100.0f);
        if (isCoasting) {
            end();
            tick(0);
            tick(0.125);
        }
        EXPECT_EQ(mFlow, nullptr);
        EXPECT_EQ(kept->getChildCount(), 0u);
        mWidget->removeChild(kept.get());
        tick(0.125);
    }
}

TEST_F(CoverFlowBadInputTest, MayGetOtherDataFromItsCallback) {
    const core::SmartPtr<test::Entries> other(new test::Entries(6));
    mFlow->SelectionCallbacks::subscribeCallback([&](CoverFlowHandler *flow) {
        flow->setDataProvider(other.get());
        flow->setExtraCount(3);
        return true;
    });
    fill(5);
    fling(-90);
    EXPECT_TRUE(rest());
    EXPECT_EQ(container().getChildCount(), 8u);
    EXPECT_LT(mFlow->getCurrent(), 6u);
    EXPECT_EQ(centreX(), 0);
}

TEST_F(CoverFlowBadInputTest, MayBeChangedByItsProvider) {
    const core::SmartPtr<test::Entries> other(new test::Entries(6));
    mFlow->setItemTemplate(mTemplate.get());
    mEntries->mOnUpdate = [&](unsigned int, Component *) { mFlow->setDataProvider(other.get()); };
    mFlow->setDataProvider(mEntries.get());
    EXPECT_EQ(mFlow->getDataProvider(), other.get());
    EXPECT_EQ(mEntries->updates(), (Indexes{0}));
    EXPECT_EQ(children(), (Lines{"(hidden)-2", "(hidden)-1", "in(hidden)", "2", "1", "0"}));
    other->mOnUpdate = [&](unsigned int index, Component *) {
        if (index == 3)
            mFlow->setExtraCount(1);
    };
    begin();
    move(-20); // the spare item makes everything anew
    EXPECT_EQ(children(), (Lines{"(hidden)-1", "in(hidden)", "1", "0"}));
    EXPECT_EQ(centreX(), 0);
}

TEST_F(CoverFlowBadInputTest, IsRefreshedAgainByAProviderThatAsksForItButNotForEver) {
    fill(5);
    int refreshes = 1;
    mEntries->mOnUpdate = [&](unsigned int, Component *) {
        if (refreshes-- > 0)
            mFlow->refresh();
    };
    mFlow->refresh();
    EXPECT_EQ(mEntries->updates().size(), 10u);
    refreshes = 1000000;
    mFlow->refresh();
    EXPECT_EQ(mEntries->updates().size(), 40u);
}

TEST_F(CoverFlowBadInputTest, EndsOfChildrenMayLookAtIt) {
    fill(5);
    mFlow->getCurrentElement()->setTabStop(0);
    mFlow->getCurrentElement()->setFocus();
    ASSERT_TRUE(mFlow->getCurrentElement()->hasFocus());
    int blurs = 0;
    mFlow->getCurrentElement()->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        ++blurs;
        EXPECT_EQ(mFlow->getCurrentElement(), nullptr);
        mFlow->setExtraCount(3);
        return false;
    });
    mFlow->setExtraCount(1);
    EXPECT_EQ(blurs, 1);
    EXPECT_EQ(mFlow->getExtraCount(), 3u);
    EXPECT_EQ(container().getChildCount(), 8u);
    dragAround();
}

TEST_F(CoverFlowBadInputTest, MayBeChangedWhenAnItemIsHidden) {
    fill(5);
    find(7)->setTabStop(0);
    find(7)->setFocus();
    ASSERT_TRUE(find(7)->hasFocus());
    container().FilterCallbacks::subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&) {
        mFlow->setExtraCount(1);
        return true;
    });
    mEntries->mCount = 7;
    mFlow->refresh();
    EXPECT_EQ(children(), (Lines{"4", "in(hidden)", "6", "5"}));
}

TEST_F(CoverFlowBadInputTest, MayBeChangedByItsTemplate) {
    const core::SmartPtr<Meddling> meddling(new Meddling);
    fill(5);
    meddling->mOnClone = [&] { mFlow->setExtraCount(1); };
    mFlow->setItemTemplate(meddling.get());
    EXPECT_EQ(mFlow->getCurrentElement(), find(0));
    mFlow->setCurrent(5, false);
    EXPECT_EQ(mFlow->getCurrentElement(), find(5));
    expectPlace(4, -400, -SIDE, 0.7f);
    dragAround();
}

TEST_F(CoverFlowBadInputTest, RunsFramesFromItsCallback) {
    fill(5);
    int depth = 0, deepest = 0;
    mFlow->SelectionCallbacks::subscribeCallback([&](CoverFlowHandler *) {
        deepest = std::max(deepest, ++depth);
        manager().update();
        --depth;
        return false;
    });
    begin();
    move(-60);
    tick(0.5);
    end();
    EXPECT_TRUE(rest());
    EXPECT_EQ(selected(), (Indexes{6}));
    EXPECT_EQ(deepest, 1);
}

TEST_F(CoverFlowBadInputTest, LogsWhatACallbackThrowsAtItsEnd) {
    fill(5);
    mFlow->getCurrentElement()->setFocus();
    mFlow->getCurrentElement()->FocusCallbacks::subscribeCallback(
        [](UIEventHandler *, const FocusEvent &) -> bool { throw std::runtime_error("stop"); });
    mFlow = nullptr;
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "A callback failed while covers was destroyed: stop");
}
