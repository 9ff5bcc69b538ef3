#pragma once

#include "foundation/mpl/Linker.h"
#include "foundation/mpl/MEncapsulate.h"
#include "nui/core/Callback.h"
#include "nui/core/CallbackList.h"
#include "nui/core/FunctionCallbackInterface.h"
#include "nui/core/FunctorCallbackInterface.h"

#include <functional>
#include <memory>
#include <utility>

namespace core {

/// The subscribers of one signal of type R(A...), called in the order of subscription.
///
/// **What a callback returns says whether it is finished: true unsubscribes it, false keeps it for the next time.** It
/// has nothing to do with consuming an event, and no value ends the pass.
///
/// A callback may do anything while it is called: subscribe (the new one is called in the same pass), unsubscribe
/// itself or others (who are then not called any more), remove all callbacks, trigger the same signal again, throw, or
/// destroy the publisher, which ends the pass. What a removed callback holds is freed after the outermost pass at the
/// latest.
///
/// Not safe against concurrent use: everything runs on the publisher's thread.
template <int, class R, class... A>
class CallbackSubscriptor_Base {
public:
    using CallbackType = Callback<R, A...>;
    using Function = std::function<R(A...)>;

    CallbackSubscriptor_Base() = default;

    /// The copy gets a clone of every callback, in order, under new ids that start at 1.
    CallbackSubscriptor_Base(const CallbackSubscriptor_Base &other) {
        if (!other.mList)
            return;
        CallbackList::Pass pass(*other.mList);
        for (auto *entry = pass.first(); entry; entry = pass.next(entry))
            subscribeCreatedCallback(callbackOf(entry)->clone());
    }

    /// Shares the other's callback objects under their ids. Live publishers are not meant to be assigned.
    CallbackSubscriptor_Base &operator=(const CallbackSubscriptor_Base &other) {
        if (this == &other)
            return *this;
        removeCallbacks();
        if (!other.mList)
            return *this;
        CallbackList &list = obtainList();
        list.setLastId(other.mList->getLastId());
        CallbackList::Pass pass(*other.mList);
        for (auto *entry = pass.first(); entry; entry = pass.next(entry)) {
            auto shared = std::make_unique<Entry>(static_cast<Entry *>(entry)->mCallback);
            shared->mId = entry->mId;
            list.appendWithId(shared.release());
        }
        return *this;
    }

    ~CallbackSubscriptor_Base() { CallbackList::abandon(mList); }

    /// Returns the id that ends the subscription. An empty function is not subscribed and gives 0, which is nobody's
    /// id.
    int subscribeCallback(Function &&function) {
        if (!function)
            return 0;
        return subscribeCreatedCallback(new CallbackType(new FunctionCallbackInterface<R, A...>(std::move(function))));
    }

    /// Subscribes a member function of an object, which is only pointed at: end the subscription before the object
    /// goes. Values behind the method are handed to it after the signal's own arguments.
    template <class Object, class Method, class... Bound>
    int subscribeCallback(Object *object, Method method, Bound... bound) {
        return subscribeCreatedCallback(newCallback(object, method, std::move(bound)...));
    }

    /// Takes the callback over. Null and an empty callback are not subscribed and give 0.
    int subscribeCreatedCallback(CallbackType *callback) {
        std::shared_ptr<CallbackType> owned(callback);
        if (!owned || owned->isEmpty())
            return 0;
        auto entry = std::make_unique<Entry>(std::move(owned));
        return obtainList().append(entry.release());
    }

    /// The callback that the member function form subscribes; the caller deletes it. An equal one serves to
    /// unsubscribe.
    template <class Object, class Method, class... Bound>
    static CallbackType *newCallback(Object *object, Method method, Bound... bound) {
        using Member = mpl::MEncapsulate<Object, Method>;
        if constexpr (sizeof...(Bound) == 0) {
            return new CallbackType(new FunctorCallbackInterface<Member, R, A...>(Member(object, method)));
        } else {
            using Linked = mpl::Linker<Member, Bound...>;
            return new CallbackType(
                new FunctorCallbackInterface<Linked, R, A...>(Linked(Member(object, method), std::move(bound)...)));
        }
    }

    /// True if there was a subscription of that id.
    bool unsubscribeCallback(int id) {
        CallbackList::Entry *entry = mList ? mList->find(id) : nullptr;
        if (!entry)
            return false;
        mList->remove(entry);
        return true;
    }

    /// Functions cannot be compared: this does nothing and is always false. Keep the id instead.
    bool unsubscribeCallback(Function &&) { return false; }

    /// Ends the first subscription that calls the same thing; true if there was one.
    bool unsubscribeCreatedCallback(const CallbackType &callback) {
        if (!mList)
            return false;
        CallbackList::Pass pass(*mList);
        for (auto *entry = pass.first(); entry; entry = pass.next(entry)) {
            if (callbackOf(entry)->equals(callback)) {
                mList->remove(entry);
                return true;
            }
        }
        return false;
    }

    /// Ends all subscriptions. Ids go on from where they were.
    void removeCallbacks() {
        if (mList)
            mList->clear();
    }

protected:
    struct Entry : CallbackList::Entry {
        explicit Entry(std::shared_ptr<CallbackType> callback) : mCallback(std::move(callback)) {}

        std::shared_ptr<CallbackType> mCallback; ///< shared with the entries of assigned publishers only
    };

    static CallbackType *callbackOf(CallbackList::Entry *entry) { return static_cast<Entry *>(entry)->mCallback.get(); }

    CallbackList &obtainList() {
        if (!mList)
            mList = new CallbackList;
        return *mList;
    }

    CallbackList *mList = nullptr; ///< null until the first subscription
};

/// Adds the call of all subscribers.
template <int BASE, int, class R, class... A>
class CallbackSubscriptorNotTyped : public CallbackSubscriptor_Base<BASE, R, A...> {
public:
    /// Calls the subscribers with the arguments. The publisher may be gone when this returns, if a callback destroyed
    /// it.
    void triggerCallbacks(A... arguments) {
        if (!this->mList)
            return;
        CallbackList &list = *this->mList;
        CallbackList::Pass pass(list);
        for (auto *entry = pass.first(); entry; entry = pass.next(entry)) {
            if (this->callbackOf(entry)->call(arguments...))
                list.remove(entry);
        }
    }
};

/// What a publisher derives from. The tag only keeps bases of one publisher apart that have the same signature.
template <class Tag, int, class R, class... A>
class CallbackSubscriptor : public CallbackSubscriptorNotTyped<0, 1, R, A...> {};

} // namespace core
