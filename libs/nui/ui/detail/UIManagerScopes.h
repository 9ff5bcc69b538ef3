#pragma once

#include "nui/ui/UIManager.h"

#include "nui/ui/Component.h"

#include <thread>

namespace nurel::ui {

/// One operation of the manager that may call out, while it is under way. When the outermost one ends, what was kept
/// for its length is let go, and a shutdown that was asked for meanwhile takes place. So it stands first in its
/// function, ahead of any lock, and nothing may follow its end.
class UIManager::Activity {
public:
    explicit Activity(UIManager &manager)
        : mManager(manager), mIsFrameThread(std::this_thread::get_id() == manager.mFrameThread) {
        if (mIsFrameThread)
            ++mManager.mActivities;
    }

    ~Activity() {
        if (!mIsFrameThread) // what it kept waits for the frame thread
            return;
        if (mManager.mActivities == 1)
            mManager.releaseKept();
        if (--mManager.mActivities == 0 && mManager.mShutdownRequested)
            shutdown();
    }

    Activity(const Activity &) = delete;
    Activity &operator=(const Activity &) = delete;

private:
    UIManager &mManager;
    const bool mIsFrameThread;
};

/// A component whose removal is being told of. It may be in its destructor, so nobody may keep it beyond that; whoever
/// tells of it sees to its life until then.
class UIManager::Removal {
public:
    Removal(UIManager &manager, const Component *component)
        : mManager(manager), mObject(component), mOuter(manager.mRemovals) {
        mManager.mRemovals = this;
    }
    ~Removal() { mManager.mRemovals = mOuter; }
    Removal(const Removal &) = delete;
    Removal &operator=(const Removal &) = delete;

    bool contains(const core::IRefCount *object) const {
        for (const Removal *removal = this; removal; removal = removal->mOuter) {
            if (removal->mObject == object)
                return true;
        }
        return false;
    }

private:
    UIManager &mManager;
    const core::IRefCount *mObject;
    const Removal *mOuter;
};

namespace detail {

/// Empties a pointer field at the end of the scope, also when a listener fails, unless it points at something else by
/// then.
template <class Field>
class ForgetScope {
public:
    explicit ForgetScope(Field &field) : mField(field), mForgotten(field) {}
    ~ForgetScope() {
        if (mField == mForgotten)
            mField = nullptr;
    }
    ForgetScope(const ForgetScope &) = delete;
    ForgetScope &operator=(const ForgetScope &) = delete;

private:
    Field &mField;
    Component *const mForgotten;
};

/// A flag that is set for the length of a scope.
class FlagScope {
public:
    explicit FlagScope(bool &flag) : mFlag(flag) { mFlag = true; }
    ~FlagScope() { mFlag = false; }
    FlagScope(const FlagScope &) = delete;
    FlagScope &operator=(const FlagScope &) = delete;

private:
    bool &mFlag;
};

} // namespace detail

} // namespace nurel::ui
