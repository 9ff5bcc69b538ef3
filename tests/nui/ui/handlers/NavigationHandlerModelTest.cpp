#include "nui/ui/handlers/NavigationFixture.h"
#include "nui/ui/handlers/NavigationHandler.h"

#include <algorithm>
#include <deque>
#include <random>
#include <vector>

using namespace nurel::ui;
using namespace nurel::ui::handlers;

namespace {

using Lines = std::vector<std::string>;
using Body = std::string;

constexpr const char *NONE = "null";

/// The rules of the stack on names alone: what is on it, on show, running and waiting, and what is told.
class Model {
public:
    using Action = const char *;
    enum Kind { PUSH, SET, POP };
    struct Request {
        Kind kind;
        Body body;
        bool animated;
    };
    struct Entry {
        Body body;
        bool animated;
    };
    struct Run {
        Body body;
        Action action;
        bool notify;
        int frames; ///< to its end
    };

    void request(const Request &request) {
        if (!isOpen(request.kind == POP ? top(0) : request.body)) {
            waiting.push_back(request);
            if (request.kind == POP)
                waiting.back().body = NONE;
            return;
        }
        perform(request);
    }

    void remove(std::size_t index) {
        if (index >= stack.size())
            return;
        if (index == 0) {
            takeTop(true);
            return;
        }
        const auto removed = stack.end() - 1 - static_cast<std::ptrdiff_t>(index);
        const Body body = removed->body;
        tell(body, "pop-begin", static_cast<int>(index));
        stack.erase(removed);
        tell(body, "pop-end", -1);
    }

    /// One update of the animations; those that start in it run from the next one on.
    void frame() {
        for (Run &run : running)
            --run.frames;
        while (!running.empty() && running.front().frames == 0) {
            const Run run = running.front();
            running.pop_front();
            end(run.body, run.action, run.notify);
        }
    }

    bool isAnimating() const { return animating || !waiting.empty(); }
    bool contains(const Body &body) const {
        return std::any_of(stack.begin(), stack.end(), [&](const Entry &entry) { return entry.body == body; });
    }
    bool isWaiting(const Body &body) const {
        return std::any_of(waiting.begin(), waiting.end(), [&](const Request &r) { return r.body == body; });
    }
    Body top(std::size_t index) const { return index < stack.size() ? stack[stack.size() - 1 - index].body : NONE; }

    std::deque<Entry> stack;
    Body shown = NONE;
    bool animating = false;
    std::deque<Request> waiting;
    std::deque<Run> running;
    Lines told;

private:
    bool isOpen(const Body &body) const { return waiting.empty() ? !animating : waiting.front().body == body; }

    void perform(const Request &request) {
        if (request.kind == POP) {
            if (stack.empty())
                return;
            const Entry popped = takeTop(true);
            start(top(0), "pop-end", true, request.animated || popped.animated);
            return;
        }
        if (request.kind == SET) {
            restored = !stack.empty() && stack.back().animated;
            if (!stack.empty())
                takeTop(false);
        }
        stack.push_back({request.body, request.animated});
        if (request.kind == PUSH && shown != NONE)
            tell(shown, "push-begin", 0);
        tell(request.body, "push-begin", -1);
        start(request.body, "push-end", request.kind == PUSH, request.animated);
    }

    Entry takeTop(bool notify) {
        const Entry taken = stack.back();
        tell(taken.body, "pop-begin", 0);
        if (notify && stack.size() > 1)
            tell(top(1), "pop-begin", 1);
        stack.pop_back();
        return taken;
    }

    void start(const Body &body, Action action, bool notify, bool animated) {
        if (!animated)
            return end(body, action, notify);
        animating = true;
        running.push_back({body, action, notify, FRAMES});
    }

    void end(const Body &body, Action action, bool notify) {
        animating = false;
        const Body old = shown;
        shown = body;
        if (old != NONE && !contains(old))
            tell(old, "pop-end", -1);
        if (stack.size() > 1 && notify)
            tell(top(1), action, 1);
        if (!stack.empty() && restored) {
            stack.back().animated = true;
            restored = false;
        }
        tell(body, action, 0);
        runWaiting();
    }

    void runWaiting() {
        if (atWork)
            return;
        atWork = true;
        bool again = false;
        while (!again && !animating && !waiting.empty()) {
            const Request head = waiting.front();
            again = head.kind == POP && !stack.empty();
            if (again)
                waiting.push_back(head);
            else
                perform(head);
            waiting.pop_front();
        }
        atWork = false;
    }

    void tell(const Body &body, Action action, int place) {
        told.push_back(body + " " + action + " " + std::to_string(place));
    }

    static constexpr int FRAMES = 3; ///< at 0, 50 and 100 milliseconds
    bool restored = false;           ///< setBody() remembers a way back
    bool atWork = false;
};

class NavigationHandlerModelTest : public test::NavigationTest {
public:
    static constexpr unsigned int BODIES = 8;

    NavigationHandlerModelTest() {
        for (unsigned int i = 0; i < BODIES; ++i)
            mBodies.push_back(newBody(("body" + std::to_string(i)).c_str()));
    }

    unsigned int random(unsigned int bound) { return static_cast<unsigned int>(mRandom() % bound); }

    /// A new handler, and nothing left of the one before.
    void renew() {
        mWidget->clearChildren();
        mHandler = nullptr;
        for (const core::SmartPtr<Panel> &body : mBodies) {
            EXPECT_FALSE(body->hasParent());
        }
        mHandler = new Handler(50, 30);
        mWidget->addChild(mHandler->getTarget());
        note(*mHandler);
        frame();
        told();
    }

    /// Lets what still runs end, so that no animation holds a body.
    void drain() {
        for (int i = 0; i < 4; ++i)
            after(50);
    }

    void request(Model::Kind kind, Panel *body, bool animated) {
        const auto type = static_cast<Transition::Type>(1 + random(7));
        const core::SmartPtr<Panel> right(random(3) == 0 ? new Panel("right") : nullptr);
        if (kind == Model::POP) {
            AnimationContext *own = nullptr;
            if (animated)
                (own = new AnimationContext)->setDuration(0.1f);
            mHandler->popBody(own);
        } else if (kind == Model::PUSH) {
            if (animated)
                mHandler->pushBody(body, nullptr, nullptr, right.get(), 0.1f, type);
            else
                mHandler->pushBody(body, nullptr, nullptr, right.get(), nullptr);
        } else {
            if (animated)
                mHandler->setBody(body, nullptr, nullptr, right.get(), 0.1f, type);
            else
                mHandler->setBody(body, nullptr, nullptr, right.get(), nullptr);
        }
    }

    static std::string stackOf(const Model &model) {
        std::string names;
        for (const Model::Entry &entry : model.stack)
            names += (names.empty() ? "" : " ") + entry.body;
        return names;
    }

    void compare(const Model &model) {
        ASSERT_EQ(mTold, model.told);
        ASSERT_EQ(stack(), stackOf(model));
        ASSERT_EQ(mHandler->getStackSize(), model.stack.size());
        ASSERT_EQ(mHandler->isAnimating(), model.isAnimating());
        ASSERT_EQ(mHandler->getBody() ? mHandler->getBody()->getName() : std::string(NONE), model.shown);
        for (const core::SmartPtr<Panel> &body : mBodies) {
            ASSERT_EQ(mHandler->containsBody(body.get()), model.contains(body->getName()));
            if (model.isWaiting(body->getName())) {
                ASSERT_TRUE(mHandler->isAnimating(body.get()));
            }
        }
        if (!model.animating) {
            ASSERT_EQ(shown(), model.shown == NONE ? "" : model.shown);
        }
        ASSERT_EQ(bar().isElementEnabled(Bar::ELEMENT_RIGHT) != 0,
                  bar().getElement(Bar::ELEMENT_RIGHT)->getName() == std::string("right"));
    }

    std::mt19937 mRandom{20240611};
    std::vector<core::SmartPtr<Panel>> mBodies;
};

} // namespace

TEST_F(NavigationHandlerModelTest, FollowsTheRulesWhateverIsAskedFor) {
    for (int session = 0; session < 120; ++session) {
        renew();
        Model model;
        for (int step = 0; step < 40; ++step) {
            const core::SmartPtr<Panel> body = mBodies[random(BODIES)];
            const bool isFree =
                !model.contains(body->getName()) && !model.isWaiting(body->getName()) && model.shown != body->getName();
            const bool animated = random(2) == 0;
            const unsigned int choice = random(20);
            if (choice < 9) {
                after(50);
                model.frame();
            } else if (choice < 13 && isFree) {
                request(Model::PUSH, body.get(), animated);
                model.request({Model::PUSH, body->getName(), animated});
            } else if (choice < 15 && isFree) {
                request(Model::SET, body.get(), animated);
                model.request({Model::SET, body->getName(), animated});
            } else if (choice < 18 && (!model.isAnimating() || random(6) == 0)) {
                request(Model::POP, nullptr, animated);
                model.request({Model::POP, NONE, animated});
            } else if (choice >= 18) {
                const unsigned int index = random(5);
                mHandler->removeBodyAt(index, random(2) == 0);
                model.remove(index);
            }
            compare(model);
            ASSERT_FALSE(HasFatalFailure()) << "session " << session << ", step " << step;
        }
        drain();
    }
}

TEST_F(NavigationHandlerModelTest, GivesEverythingBack) {
    for (int session = 0; session < 60; ++session) {
        renew();
        for (int step = 0; step < 40; ++step) {
            Panel *body = mBodies[random(BODIES)].get();
            const auto kind = static_cast<Model::Kind>(random(3));
            if (random(3) == 0)
                after(50);
            else if (random(8) == 0)
                mHandler->removeBodyAt(random(4), random(2) == 0);
            else
                request(kind, body, random(2) == 0); // also bodies that are there or wait already
        }
    }
    renew();
    drain();
    manager().clearWidgets();
    frame();
    for (const core::SmartPtr<Panel> &body : mBodies)
        EXPECT_EQ(body->getRefCount(), 1U) << body->getName();
}

TEST_F(NavigationHandlerModelTest, CallbacksMayAskForAnything) {
    int depth = 0;
    for (int session = 0; session < 60; ++session) {
        renew();
        mHandler->Handler::NavigationCallbacks::subscribeCallback([&](Handler *, Component *, Action, int) {
            if (depth < 3 && random(3) == 0) {
                ++depth;
                if (random(4) == 0)
                    mHandler->removeBodyAt(random(3), true);
                else
                    request(static_cast<Model::Kind>(random(3)), mBodies[random(BODIES)].get(), random(2) == 0);
                --depth;
            }
            return false;
        });
        for (int step = 0; step < 30; ++step) {
            if (random(3) == 0)
                after(50);
            else
                request(static_cast<Model::Kind>(random(3)), mBodies[random(BODIES)].get(), random(2) == 0);
            ASSERT_LE(mHandler->getBodyContainer()->getChildCount(), BODIES);
            if (Component *body = mHandler->getBody(); body && !mHandler->isAnimating()) {
                ASSERT_EQ(body->getParent(), mHandler->getBodyContainer());
            }
        }
    }
    renew();
    drain();
    for (const core::SmartPtr<Panel> &body : mBodies)
        EXPECT_EQ(body->getRefCount(), 1U) << body->getName();
}
