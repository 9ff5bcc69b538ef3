#include "nui/ui/KeyboardOverlay.h"

#include "nui/ui/components/TextFieldFixture.h"

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace nurel::ui;
using components::TextField;
using nurel::input::Keyboard;

namespace {

using Lines = std::vector<std::string>;

/// Lets tests end an edit as a platform does.
class OpenOverlay : public KeyboardOverlay {
public:
    using KeyboardOverlay::end;
    using KeyboardOverlay::textEditingFinished;
};

/// A platform's keyboard that notes what it is told.
class NotingOverlay : public OpenOverlay {
public:
    explicit NotingOverlay(Lines &lines) : mLines(lines) {}
    ~NotingOverlay() override { end(); }

    class Data : public PlatformData {
    public:
        explicit Data(KeyboardOverlay *owner) : PlatformData(owner) {}

        using PlatformData::getOwner;
        using PlatformData::textEditingFinished;
    };

    Data *mData = nullptr;

private:
    PlatformData *_init() override {
        mLines.emplace_back("init");
        return mData = new Data(this);
    }

    void _shutdown(PlatformData *data) override {
        mLines.emplace_back(data == mData ? "shutdown" : "shutdown of a stranger");
        delete mData;
    }

    void _show(unsigned int options, const char *text) override {
        mLines.push_back("show " + std::to_string(options) + " " + text);
    }

    void _refresh(unsigned int options, const char *text) override {
        mLines.push_back("refresh " + std::to_string(options) + " " + text);
    }

    void _dismiss() override { mLines.emplace_back("dismiss"); }

    Lines &mLines;
};

class KeyboardOverlayTest : public test::ManagerTest {
public:
    KeyboardOverlayTest() : mFirst(new components::Panel("first")), mSecond(new components::Panel("second")) {
        note(mOverlay);
    }
    ~KeyboardOverlayTest() override { UIManager::shutdown(); } // which still tells

    static std::string nameOf(const Component *component) { return component ? component->getName() : "-"; }

    void note(KeyboardOverlay &overlay) {
        overlay.getAcquiredSignal().subscribeCallback([this, &overlay](KeyboardOverlay *sender, Component *owner) {
            EXPECT_EQ(sender, &overlay);
            mSignals.push_back("acquired " + nameOf(owner) + " of " + nameOf(overlay.getOwner()));
            return false;
        });
        overlay.getPlatformSignal().subscribeCallback([this](KeyboardOverlay *, Component *) {
            mSignals.emplace_back("platform");
            return false;
        });
        overlay.getFinishedSignal().subscribeCallback([this, &overlay](KeyboardOverlay *sender, Component *owner,
                                                                       KeyboardOverlay::TextEditingResult result,
                                                                       const char *text) {
            EXPECT_EQ(sender, &overlay);
            mSignals.push_back("finished " + nameOf(owner) + " " + std::to_string(result) + " " +
                               (text ? text : "null"));
            return false;
        });
    }

    Lines signals() { return std::exchange(mSignals, {}); }

    core::SmartPtr<components::Panel> mFirst;
    core::SmartPtr<components::Panel> mSecond;
    Lines mSignals;
    OpenOverlay mOverlay;
};

} // namespace

TEST_F(KeyboardOverlayTest, IsHiddenAndWithoutAnOwnerAtFirst) {
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_FALSE(mOverlay.isShown());
    EXPECT_EQ(KeyboardOverlay::TEXT_ACCEPTED, 0);
    EXPECT_EQ(KeyboardOverlay::OWNER_RESIGNED, 1);
    EXPECT_EQ(KeyboardOverlay::OVERLAY_DISMISSED, 2);
    mOverlay.acquire(nullptr, "text", 0);
    EXPECT_FALSE(mOverlay.isShown());
    EXPECT_EQ(signals(), Lines{});
}

TEST_F(KeyboardOverlayTest, IsShownFromTheAcquisitionUntilTheOwnerResigns) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    EXPECT_EQ(mOverlay.getOwner(), mFirst.get());
    EXPECT_TRUE(mOverlay.isShown());
    EXPECT_EQ(signals(), Lines{"acquired first of first"});
    EXPECT_EQ(mFirst->getRefCount(), 2u);
    EXPECT_TRUE(mOverlay.resign(mFirst.get()));
    EXPECT_EQ(signals(), (Lines{"finished first 1 null", "finished - 2 null"}));
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_FALSE(mOverlay.isShown());
    EXPECT_EQ(mFirst->getRefCount(), 1u);
}

TEST_F(KeyboardOverlayTest, AcquiringByTheOwnerSendsNothing) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    signals();
    mOverlay.acquire(mFirst.get(), "other", 7);
    EXPECT_EQ(signals(), Lines{});
}

TEST_F(KeyboardOverlayTest, AnotherComponentTakesTheKeyboardOver) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    signals();
    mOverlay.acquire(mSecond.get(), nullptr, 0);
    EXPECT_EQ(signals(), (Lines{"finished first 1 null", "acquired second of second"}));
    EXPECT_EQ(mOverlay.getOwner(), mSecond.get());
    EXPECT_EQ(mFirst->getRefCount(), 1u);
    mOverlay.acquire(nullptr, "text", 0);
    EXPECT_EQ(signals(), Lines{"finished second 1 null"});
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_TRUE(mOverlay.isShown()); // nobody has dismissed it
}

TEST_F(KeyboardOverlayTest, ResigningIsForTheOwnerOrForNobodyInParticular) {
    EXPECT_FALSE(mOverlay.resign(nullptr));
    EXPECT_FALSE(mOverlay.resign(mFirst.get()));
    mOverlay.acquire(mFirst.get(), "text", 0);
    signals();
    EXPECT_FALSE(mOverlay.resign(mSecond.get()));
    EXPECT_EQ(signals(), Lines{});
    EXPECT_EQ(mOverlay.getOwner(), mFirst.get());
    EXPECT_TRUE(mOverlay.isShown());
    EXPECT_TRUE(mOverlay.resign(nullptr));
    EXPECT_EQ(signals(), (Lines{"finished first 1 null", "finished - 2 null"}));
}

TEST_F(KeyboardOverlayTest, TheEndOfAnEditGivesTheTextBack) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    signals();
    mOverlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "töxt");
    EXPECT_EQ(signals(), Lines{"finished first 0 töxt"}); // the render thread calls: at once
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_FALSE(mOverlay.isShown());
    mOverlay.textEditingFinished(KeyboardOverlay::OVERLAY_DISMISSED, nullptr);
    EXPECT_EQ(signals(), Lines{"finished - 2 "}); // nobody had it
    mOverlay.acquire(mFirst.get(), "again", 0);
    EXPECT_EQ(signals(), Lines{"acquired first of first"});
    EXPECT_TRUE(mOverlay.isShown());
}

TEST_F(KeyboardOverlayTest, TheEndOfAnEditFromAnotherThreadIsToldWithTheNextFrame) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    signals();
    std::thread([this] {
        std::string lent("lent");
        mOverlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, lent.c_str());
    }).join();
    EXPECT_EQ(signals(), Lines{});
    EXPECT_FALSE(mOverlay.isShown());
    EXPECT_EQ(mOverlay.getOwner(), mFirst.get());
    mEngine->pump();
    EXPECT_EQ(signals(), Lines{"finished first 0 lent"});
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_EQ(mFirst->getRefCount(), 1u);
}

TEST_F(KeyboardOverlayTest, WhoHasTheKeyboardMeanwhileLosesIt) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    std::thread([this] { mOverlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "late"); }).join();
    mOverlay.acquire(mSecond.get(), "text", 0);
    signals();
    mEngine->pump();
    EXPECT_EQ(signals(), Lines{"finished first 0 late"});
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
}

TEST_F(KeyboardOverlayTest, ManyThreadsMayEndEdits) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this] {
            for (int j = 0; j < 50; ++j)
                mOverlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "text");
        });
    }
    for (int i = 0; i < 200; ++i) {
        mOverlay.acquire(i % 2 ? mFirst.get() : mSecond.get(), "text", 0);
        mEngine->pump();
    }
    for (std::thread &thread : threads)
        thread.join();
    mEngine->pump();
    EXPECT_GE(mOverlay.getFinishCount(), 200u);
    mOverlay.resign(nullptr);
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_EQ(mFirst->getRefCount() + mSecond->getRefCount(), 2u);
}

TEST_F(KeyboardOverlayTest, AnEndThatIsUnderWaySurvivesTheOverlay) {
    auto overlay = std::make_unique<OpenOverlay>();
    note(*overlay);
    overlay->acquire(mFirst.get(), "text", 0);
    std::thread([&] { overlay->textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "text"); }).join();
    signals();
    overlay.reset();
    EXPECT_EQ(signals(), Lines{}); // hidden already
    EXPECT_EQ(mFirst->getRefCount(), 2u);
    mEngine->pump();
    EXPECT_EQ(signals(), Lines{});
    EXPECT_EQ(mFirst->getRefCount(), 1u);
}

TEST_F(KeyboardOverlayTest, WithoutARendererTheEndIsToldAtOnce) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    signals();
    mSecond = nullptr;
    UIManager::shutdown();
    mEngine.reset();
    std::thread([this] { mOverlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "text"); }).join();
    EXPECT_EQ(signals(), Lines{"finished first 0 text"});
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    mOverlay.acquire(mFirst.get(), "text", 0);
    mOverlay.textEditingFinished(KeyboardOverlay::OVERLAY_DISMISSED, "");
    EXPECT_EQ(signals(), (Lines{"acquired first of first", "finished first 2 "}));
}

TEST_F(KeyboardOverlayTest, EndsWithADismissal) {
    auto overlay = std::make_unique<OpenOverlay>();
    note(*overlay);
    overlay->acquire(mFirst.get(), "text", 0);
    signals();
    overlay->end();
    EXPECT_EQ(signals(), Lines{"finished first 2 null"});
    EXPECT_EQ(overlay->getOwner(), nullptr);
    overlay->end();
    overlay->acquire(mFirst.get(), "text", 0);
    overlay.reset();
    EXPECT_EQ(signals(), Lines{});
    EXPECT_EQ(mFirst->getRefCount(), 1u);
}

// --- a platform's keyboard ---

TEST_F(KeyboardOverlayTest, TellsThePlatform) {
    Lines lines;
    {
        NotingOverlay overlay(lines);
        EXPECT_EQ(lines, Lines{});
        overlay.acquire(mFirst.get(), "text", 3);
        EXPECT_EQ(std::exchange(lines, {}), (Lines{"init", "show 3 text"}));
        EXPECT_EQ(overlay.mData->getOwner(), &overlay);
        overlay.acquire(mFirst.get(), "text", 3);
        EXPECT_EQ(lines, Lines{});
        overlay.acquire(mSecond.get(), nullptr, 4);
        EXPECT_EQ(std::exchange(lines, {}), Lines{"refresh 4 "});
        overlay.resign(nullptr);
        EXPECT_EQ(std::exchange(lines, {}), Lines{"dismiss"});
        overlay.acquire(mSecond.get(), "again", 0);
        EXPECT_EQ(std::exchange(lines, {}), Lines{"show 0 again"});
        note(overlay);
        overlay.mData->textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "done");
        EXPECT_EQ(signals(), Lines{"finished second 0 done"});
        EXPECT_EQ(lines, Lines{}); // it knows
        overlay.acquire(mFirst.get(), "more", 0);
        EXPECT_EQ(std::exchange(lines, {}), Lines{"show 0 more"});
    }
    EXPECT_EQ(lines, (Lines{"dismiss", "shutdown"}));
}

TEST_F(KeyboardOverlayTest, APlatformThatShowsNothingIsNotShutDown) {
    Lines lines;
    { NotingOverlay overlay(lines); }
    EXPECT_EQ(lines, Lines{});
}

// --- subscribers that do something ---

TEST_F(KeyboardOverlayTest, ASubscriberMayChangeTheTextThatIsToBeShown) {
    Lines lines;
    NotingOverlay overlay(lines);
    std::string text("a text that is long enough to be kept on the heap");
    const std::string before = text;
    overlay.getAcquiredSignal().subscribeCallback([&](KeyboardOverlay *, Component *) {
        std::string().swap(text);
        return false;
    });
    overlay.acquire(mFirst.get(), text.c_str(), 0);
    EXPECT_EQ(lines, (Lines{"init", "show 0 " + before}));
}

TEST_F(KeyboardOverlayTest, WhatIsGivenUpAtOnceIsNotShown) {
    Lines lines;
    NotingOverlay overlay(lines);
    overlay.getAcquiredSignal().subscribeCallback([&](KeyboardOverlay *, Component *owner) {
        overlay.resign(owner);
        return false;
    });
    overlay.acquire(mFirst.get(), "text", 0);
    EXPECT_EQ(lines, Lines{});
    EXPECT_FALSE(overlay.isShown());
    EXPECT_EQ(overlay.getOwner(), nullptr);
}

TEST_F(KeyboardOverlayTest, ASubscriberMayEndTheOverlay) {
    const auto tryWith = [this](void (*act)(OpenOverlay &, Component *)) {
        auto *overlay = new OpenOverlay;
        overlay->acquire(mFirst.get(), "text", 0);
        int calls = 0;
        overlay->getFinishedSignal().subscribeCallback(
            [&](KeyboardOverlay *, Component *, KeyboardOverlay::TextEditingResult, const char *) {
                if (calls++ == 0)
                    delete overlay;
                return false;
            });
        act(*overlay, mSecond.get());
        EXPECT_GE(calls, 1); // and once more of the dismissal, while it is shown
        EXPECT_EQ(mFirst->getRefCount() + mSecond->getRefCount(), 2u);
    };
    tryWith([](OpenOverlay &overlay, Component *second) { overlay.acquire(second, "text", 0); });
    tryWith([](OpenOverlay &overlay, Component *) { overlay.resign(nullptr); });
    tryWith(
        [](OpenOverlay &overlay, Component *) { overlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "text"); });
    auto *overlay = new OpenOverlay;
    overlay->getAcquiredSignal().subscribeCallback([](KeyboardOverlay *sender, Component *) {
        delete sender;
        return false;
    });
    overlay->acquire(mFirst.get(), "text", 0);
    EXPECT_EQ(mFirst->getRefCount(), 1u);
}

TEST_F(KeyboardOverlayTest, SubscribersThatHandTheKeyboardOnForEverAreCutOff) {
    mOverlay.getFinishedSignal().subscribeCallback(
        [this](KeyboardOverlay *overlay, Component *, KeyboardOverlay::TextEditingResult, const char *) {
            overlay->acquire(mSecond.get(), "text", 0);
            return false;
        });
    mOverlay.acquire(mFirst.get(), "text", 0);
    mOverlay.resign(nullptr);
    EXPECT_EQ(mLog.takeOne(logging::Level::WARN),
              "Subscribers hand the keyboard on inside one another, 16 deep: dropped");
    mLog.take(logging::Level::WARN);
    mOverlay.getFinishedSignal().removeCallbacks();
}

TEST_F(KeyboardOverlayTest, ASubscriberThatFailsLeavesNoOwner) {
    mOverlay.acquire(mFirst.get(), "text", 0);
    mOverlay.getFinishedSignal().subscribeCallback([](KeyboardOverlay *, Component *,
                                                      KeyboardOverlay::TextEditingResult,
                                                      const char *) -> bool { throw std::runtime_error("sorry"); });
    mOverlay.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "text");
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Task on the render thread failed: sorry");
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
    EXPECT_EQ(mOverlay.getCurrentFinish(), 0u);
    mOverlay.acquire(mFirst.get(), "text", 0);
    mOverlay.end();
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "A callback failed while the keyboard overlay ended: sorry");
    EXPECT_EQ(mOverlay.getOwner(), nullptr);
}

TEST_F(KeyboardOverlayTest, CountsTheEndsThatItAnnounces) {
    std::vector<unsigned int> seen;
    mOverlay.getFinishedSignal().subscribeCallback(
        [&](KeyboardOverlay *overlay, Component *, KeyboardOverlay::TextEditingResult, const char *) {
            seen.push_back(overlay->getCurrentFinish());
            return false;
        });
    EXPECT_EQ(mOverlay.getFinishCount(), 0u);
    mOverlay.acquire(mFirst.get(), "text", 0);
    mOverlay.resign(nullptr);
    EXPECT_EQ(seen, (std::vector<unsigned int>{1, 2}));
    EXPECT_EQ(mOverlay.getFinishCount(), 2u);
    EXPECT_EQ(mOverlay.getCurrentFinish(), 0u);
}

// --- the manager's ---

TEST_F(KeyboardOverlayTest, TheManagerMakesOneWhenItIsAskedFor) {
    EXPECT_EQ(manager().getKeyboardOverlay(), nullptr);
    KeyboardOverlay *overlay = manager().acquireKeyboard(mFirst.get(), "text", 0);
    ASSERT_NE(overlay, nullptr);
    EXPECT_EQ(overlay, manager().getKeyboardOverlay());
    EXPECT_EQ(overlay->getOwner(), mFirst.get());
    EXPECT_TRUE(overlay->isShown());
    EXPECT_EQ(manager().acquireKeyboard(mSecond.get(), "text", 0), overlay);
    EXPECT_EQ(overlay->getOwner(), mSecond.get());
}

TEST_F(KeyboardOverlayTest, TheManagerTakesAPlatformsOverlay) {
    Lines lines;
    note(*manager().acquireKeyboard(mFirst.get(), "text", 0));
    manager().setKeyboardOverlay(std::make_unique<NotingOverlay>(lines));
    EXPECT_EQ(signals(), Lines{"finished first 2 null"}); // the end of the one before
    manager().acquireKeyboard(mSecond.get(), "text", 1);
    EXPECT_EQ(std::exchange(lines, {}), (Lines{"init", "show 1 text"}));
    manager().setKeyboardOverlay(nullptr);
    EXPECT_EQ(std::exchange(lines, {}), (Lines{"dismiss", "shutdown"}));
    EXPECT_EQ(manager().getKeyboardOverlay(), nullptr);
    EXPECT_NE(manager().acquireKeyboard(mSecond.get(), "text", 1), nullptr);
    manager().setKeyboardOverlay(std::make_unique<NotingOverlay>(lines));
    manager().acquireKeyboard(mSecond.get(), "text", 1);
    lines.clear();
    UIManager::shutdown();
    EXPECT_EQ(lines, (Lines{"dismiss", "shutdown"}));
    EXPECT_EQ(mSecond->getRefCount(), 1u);
}

TEST_F(KeyboardOverlayTest, WhileTheManagerEndsNobodyGetsTheKeyboard) {
    KeyboardOverlay *overlay = manager().acquireKeyboard(mFirst.get(), "text", 0);
    int calls = 0;
    overlay->getFinishedSignal().subscribeCallback(
        [&](KeyboardOverlay *, Component *, KeyboardOverlay::TextEditingResult, const char *) {
            ++calls;
            EXPECT_EQ(manager().acquireKeyboard(mSecond.get(), "text", 0), nullptr);
            return false;
        });
    UIManager::shutdown();
    EXPECT_EQ(calls, 1);
}

TEST_F(KeyboardOverlayTest, ASubscriberMayEndTheManager) {
    KeyboardOverlay *overlay = manager().acquireKeyboard(mFirst.get(), "text", 0);
    overlay->getFinishedSignal().subscribeCallback(
        [](KeyboardOverlay *, Component *, KeyboardOverlay::TextEditingResult, const char *) {
            UIManager::shutdown();
            return false;
        });
    manager().acquireKeyboard(mSecond.get(), "text", 0);
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(mSecond->getRefCount(), 1u);
}
