#include "nui/core/CallbackSubscriptor.h"

#include "foundation/mpl/Int2Type.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Signal = core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, int>;
using TextSignal = core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, const std::string &, int &>;

static_assert(sizeof(Signal) <= 48);

/// Notes its letter and the argument, and returns what it is told to.
struct Listener {
    std::string calls;

    auto noting(char letter, bool finished = false) {
        return [this, letter, finished](int argument) {
            calls += letter;
            if (argument != 0)
                calls += std::to_string(argument);
            return finished;
        };
    }

    std::string trigger(Signal &signal, int argument = 0) {
        calls.clear();
        signal.triggerCallbacks(argument);
        return calls;
    }
};

class Receiver {
public:
    bool take(int argument) {
        last = argument;
        return false;
    }
    bool takeConst(int argument) const {
        last = -argument;
        return false;
    }
    bool takeWithMore(int argument, const std::string &text, int factor) {
        last = argument * factor;
        lastText = text;
        return false;
    }

    mutable int last = 0;
    std::string lastText;
};

} // namespace

TEST(CallbackSubscriptor, CallsSubscribersInTheOrderOfSubscription) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback(listener.noting('a'));
    signal.subscribeCallback(listener.noting('b'));
    signal.subscribeCallback(listener.noting('c'));
    EXPECT_EQ(listener.trigger(signal, 7), "a7b7c7");
}

TEST(CallbackSubscriptor, UnsubscribesACallbackThatReturnsTrue) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback(listener.noting('a'));
    signal.subscribeCallback(listener.noting('b', true));
    signal.subscribeCallback(listener.noting('c'));
    EXPECT_EQ(listener.trigger(signal), "abc");
    EXPECT_EQ(listener.trigger(signal), "ac");
}

TEST(CallbackSubscriptor, ASignalWithoutSubscribersDoesNothing) {
    Signal signal;
    signal.triggerCallbacks(1);
    signal.removeCallbacks();
}

TEST(CallbackSubscriptor, GivesIdsFromOneThatAreNeverReused) {
    Signal signal;
    Listener listener;
    EXPECT_EQ(signal.subscribeCallback(listener.noting('a')), 1);
    EXPECT_EQ(signal.subscribeCallback(listener.noting('b')), 2);
    EXPECT_TRUE(signal.unsubscribeCallback(2));
    EXPECT_EQ(signal.subscribeCallback(listener.noting('c')), 3);
}

TEST(CallbackSubscriptor, RemoveCallbacksLeavesTheIdsGoingOn) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback(listener.noting('a'));
    signal.subscribeCallback(listener.noting('b'));
    signal.removeCallbacks();
    EXPECT_EQ(listener.trigger(signal), "");
    EXPECT_EQ(signal.subscribeCallback(listener.noting('c')), 3);
    EXPECT_EQ(listener.trigger(signal), "c");
}

TEST(CallbackSubscriptor, UnsubscribingAnUnknownIdIsFalse) {
    Signal signal;
    EXPECT_FALSE(signal.unsubscribeCallback(7));
    Listener listener;
    const int id = signal.subscribeCallback(listener.noting('a'));
    EXPECT_FALSE(signal.unsubscribeCallback(7));
    EXPECT_TRUE(signal.unsubscribeCallback(id));
    EXPECT_FALSE(signal.unsubscribeCallback(id));
    EXPECT_EQ(listener.trigger(signal), "");
}

TEST(CallbackSubscriptor, AFunctionCannotBeUnsubscribedByItself) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback(listener.noting('a'));
    EXPECT_FALSE(signal.unsubscribeCallback(listener.noting('a')));
    EXPECT_EQ(listener.trigger(signal), "a");
}

TEST(CallbackSubscriptor, AnEmptyFunctionAndANullCallbackAreNotSubscribed) {
    Signal signal;
    EXPECT_EQ(signal.subscribeCallback(Signal::Function()), 0);
    EXPECT_EQ(signal.subscribeCreatedCallback(nullptr), 0);
    EXPECT_EQ(signal.subscribeCreatedCallback(new Signal::CallbackType(nullptr)), 0);
    signal.triggerCallbacks(1);
    EXPECT_FALSE(signal.unsubscribeCreatedCallback(Signal::CallbackType(nullptr)));
}

TEST(CallbackSubscriptor, SubscribesMemberFunctions) {
    Signal signal;
    Receiver receiver;
    signal.subscribeCallback(&receiver, &Receiver::take);
    signal.triggerCallbacks(5);
    EXPECT_EQ(receiver.last, 5);
    signal.removeCallbacks();
    signal.subscribeCallback(&receiver, &Receiver::takeConst);
    signal.triggerCallbacks(5);
    EXPECT_EQ(receiver.last, -5);
}

TEST(CallbackSubscriptor, HandsBoundArgumentsOnAfterTheSignalsOwn) {
    Signal signal;
    Receiver receiver;
    signal.subscribeCallback(&receiver, &Receiver::takeWithMore, std::string("bound"), 3);
    signal.triggerCallbacks(5);
    EXPECT_EQ(receiver.last, 15);
    EXPECT_EQ(receiver.lastText, "bound");
}

TEST(CallbackSubscriptor, UnsubscribesTheFirstCallbackThatCallsTheSame) {
    Signal signal;
    Receiver one;
    Receiver other;
    signal.subscribeCallback(&one, &Receiver::take);
    signal.subscribeCallback(&other, &Receiver::take);
    signal.subscribeCallback(&one, &Receiver::take);
    const std::unique_ptr<Signal::CallbackType> same(Signal::newCallback(&one, &Receiver::take));
    const std::unique_ptr<Signal::CallbackType> method(Signal::newCallback(&one, &Receiver::takeConst));
    EXPECT_FALSE(signal.unsubscribeCreatedCallback(*method));
    EXPECT_TRUE(signal.unsubscribeCreatedCallback(*same));
    signal.triggerCallbacks(1);
    EXPECT_EQ(one.last, 1); // the third is still there
    EXPECT_TRUE(signal.unsubscribeCreatedCallback(*same));
    EXPECT_FALSE(signal.unsubscribeCreatedCallback(*same));
    signal.triggerCallbacks(2);
    EXPECT_EQ(one.last, 1);
    EXPECT_EQ(other.last, 2);
}

TEST(CallbackSubscriptor, BoundArgumentsCountInTheComparison) {
    Signal signal;
    Receiver receiver;
    signal.subscribeCallback(&receiver, &Receiver::takeWithMore, std::string("a"), 1);
    const std::unique_ptr<Signal::CallbackType> differing(
        Signal::newCallback(&receiver, &Receiver::takeWithMore, std::string("a"), 2));
    const std::unique_ptr<Signal::CallbackType> equal(
        Signal::newCallback(&receiver, &Receiver::takeWithMore, std::string("a"), 1));
    EXPECT_FALSE(signal.unsubscribeCreatedCallback(*differing));
    EXPECT_TRUE(signal.unsubscribeCreatedCallback(*equal));
}

TEST(CallbackSubscriptor, ACopyHasClonesUnderIdsOfItsOwn) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback(listener.noting('a'));
    signal.subscribeCallback(listener.noting('b'));
    signal.subscribeCallback(listener.noting('c'));
    signal.unsubscribeCallback(1);
    Signal copy(signal);
    EXPECT_EQ(listener.trigger(copy), "bc");
    EXPECT_TRUE(copy.unsubscribeCallback(1));
    EXPECT_EQ(listener.trigger(copy), "c");
    EXPECT_EQ(listener.trigger(signal), "bc");
    EXPECT_EQ(copy.subscribeCallback(listener.noting('d')), 3);
}

TEST(CallbackSubscriptor, AnAssignedSignalSharesTheCallbacksUnderTheirIds) {
    Signal source;
    Listener listener;
    source.subscribeCallback(listener.noting('a'));
    source.subscribeCallback(listener.noting('b'));
    source.unsubscribeCallback(1);
    Signal target;
    target.subscribeCallback(listener.noting('x'));
    target = source;
    Signal &itself = target;
    target = itself;
    EXPECT_EQ(listener.trigger(target), "b");
    EXPECT_TRUE(target.unsubscribeCallback(2));
    EXPECT_EQ(listener.trigger(target), "");
    EXPECT_EQ(listener.trigger(source), "b");
    target = Signal();
    EXPECT_EQ(listener.trigger(target), "");
}

TEST(CallbackSubscriptor, ReferencesReachTheCallbackAsTheyAre) {
    TextSignal signal;
    signal.subscribeCallback([](const std::string &text, int &answer) {
        answer = static_cast<int>(text.size());
        return false;
    });
    int answer = 0;
    signal.triggerCallbacks("four", answer);
    EXPECT_EQ(answer, 4);
}

TEST(CallbackSubscriptor, ACallbackMaySubscribeAnotherThatIsCalledInTheSamePass) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback([&](int) {
        listener.calls += 'a';
        signal.subscribeCallback(listener.noting('b', true));
        return true;
    });
    EXPECT_EQ(listener.trigger(signal), "ab");
    EXPECT_EQ(listener.trigger(signal), "");
}

TEST(CallbackSubscriptor, ACallbackMayUnsubscribeItselfById) {
    Signal signal;
    Listener listener;
    int id = 0;
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    id = signal.subscribeCallback([&, held = std::move(held)](int) {
        EXPECT_TRUE(signal.unsubscribeCallback(id));
        EXPECT_FALSE(signal.unsubscribeCallback(id));
        listener.calls += *held == 1 ? 'a' : '?'; // what it holds is still there
        return true;
    });
    signal.subscribeCallback(listener.noting('b'));
    EXPECT_EQ(listener.trigger(signal), "ab");
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(listener.trigger(signal), "b");
}

TEST(CallbackSubscriptor, ACallbackMayUnsubscribeTheNextOne) {
    Signal signal;
    Listener listener;
    int next = 0;
    signal.subscribeCallback([&](int) {
        listener.calls += 'a';
        signal.unsubscribeCallback(next);
        return false;
    });
    next = signal.subscribeCallback(listener.noting('b'));
    signal.subscribeCallback(listener.noting('c'));
    EXPECT_EQ(listener.trigger(signal), "ac");
}

TEST(CallbackSubscriptor, ACallbackMayRemoveAllAndSubscribeAnew) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback([&](int) {
        listener.calls += 'a';
        signal.removeCallbacks();
        EXPECT_EQ(signal.subscribeCallback(listener.noting('n')), 3);
        return false;
    });
    signal.subscribeCallback(listener.noting('b'));
    EXPECT_EQ(listener.trigger(signal), "an");
    EXPECT_EQ(listener.trigger(signal), "n");
}

TEST(CallbackSubscriptor, ACallbackMayDestroyThePublisher) {
    auto signal = std::make_unique<Signal>();
    Listener listener;
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    signal->subscribeCallback([&, held = std::move(held)](int) {
        signal.reset();
        listener.calls += *held == 1 ? 'a' : '?';
        return true;
    });
    signal->subscribeCallback(listener.noting('b'));
    Signal &publisher = *signal;
    publisher.triggerCallbacks(0);
    EXPECT_EQ(listener.calls, "a");
    EXPECT_TRUE(watched.expired());
}

TEST(CallbackSubscriptor, APublisherMayDieInANestedTrigger) {
    auto signal = std::make_unique<Signal>();
    Listener listener;
    signal->subscribeCallback([&](int depth) {
        listener.calls += 'a';
        if (depth == 0)
            signal->triggerCallbacks(1);
        else
            signal.reset();
        return false;
    });
    signal->subscribeCallback(listener.noting('b'));
    Signal &publisher = *signal;
    publisher.triggerCallbacks(0);
    EXPECT_EQ(listener.calls, "aa");
}

TEST(CallbackSubscriptor, TriggersMayBeNested) {
    Signal signal;
    Listener listener;
    signal.subscribeCallback([&](int depth) {
        listener.calls += 'a';
        if (depth < 2)
            signal.triggerCallbacks(depth + 1);
        return true; // three times over, of which the first counts
    });
    signal.subscribeCallback(listener.noting('b'));
    EXPECT_EQ(listener.trigger(signal), "aaab2b1b");
    EXPECT_EQ(listener.trigger(signal), "b");
}

TEST(CallbackSubscriptor, AnExceptionLeavesTheSubscriptionsSound) {
    Signal signal;
    Listener listener;
    int id = 0;
    id = signal.subscribeCallback([&](int argument) -> bool {
        listener.calls += 'a';
        if (argument == 1) {
            signal.unsubscribeCallback(id);
            throw std::runtime_error("broken");
        }
        return false;
    });
    signal.subscribeCallback(listener.noting('b'));
    EXPECT_EQ(listener.trigger(signal, 0), "ab");
    EXPECT_THROW(signal.triggerCallbacks(1), std::runtime_error);
    EXPECT_EQ(listener.trigger(signal, 0), "b");
}

TEST(CallbackSubscriptor, WhatACallbackHoldsMayDestroyThePublisherWhenItGoes) {
    struct Owner {
        std::unique_ptr<Signal> signal = std::make_unique<Signal>();
    };
    struct Bomb {
        Owner *owner;
        explicit Bomb(Owner *o) : owner(o) {}
        ~Bomb() { owner->signal.reset(); }
    };
    Owner owner;
    auto bomb = std::make_shared<Bomb>(&owner);
    const int id = owner.signal->subscribeCallback([bomb](int) { return false; });
    owner.signal->subscribeCallback([bomb](int) { return true; });
    owner.signal->triggerCallbacks(0);
    bomb.reset();
    Signal &signal = *owner.signal;
    EXPECT_TRUE(signal.unsubscribeCallback(id));
    EXPECT_EQ(owner.signal, nullptr);
}

TEST(CallbackSubscriptor, BasesWithOneSignatureAreToldApartByTheirTags) {
    using First = core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, int>;
    using Second = core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, int>;
    struct Publisher : First, Second {};
    Publisher publisher;
    int first = 0;
    int second = 0;
    publisher.First::subscribeCallback([&](int argument) {
        first = argument;
        return false;
    });
    publisher.Second::subscribeCallback([&](int argument) {
        second = argument;
        return false;
    });
    publisher.First::triggerCallbacks(1);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
    publisher.Second::triggerCallbacks(2);
    EXPECT_EQ(second, 2);
}

TEST(CallbackSubscriptor, ACaptureMayUseThePublisherWhileBothGo) {
    struct Goodbye {
        Goodbye(Signal *publisher, int &farewells) : mPublisher(publisher), mFarewells(farewells) {}
        ~Goodbye() {
            mPublisher->triggerCallbacks(1);
            mPublisher->unsubscribeCallback(1);
            ++mFarewells;
        }
        Signal *mPublisher;
        int &mFarewells;
    };
    int farewells = 0;
    auto signal = std::make_unique<Signal>();
    Signal *publisher = signal.get();
    for (int i = 0; i < 2; ++i)
        signal->subscribeCallback([kept = std::make_shared<Goodbye>(publisher, farewells)](int) { return false; });
    signal.reset();
    EXPECT_EQ(farewells, 2);
}
