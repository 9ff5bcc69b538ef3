#pragma once

#include "nui/ui/UIManager.h"

#include "nui/ui/Component.h"

namespace nurel::ui {

/// One operation of the manager that may call out, while it is under way. When the outermost one ends, what was kept
/// for its length is let go, and a shutdown that was asked for meanwhile takes place. So it stands first in its
/// function, ahead of any lock, and nothing may follow its end.
class UIManager::Activity {
public:
    explicit Activity(UIManager &manager) : mManager(manager) { ++mManager.mActivities; }

    ~Activity() {
        if (mManager.mActivities == 1)
            mManager.releaseKept();
        if (--mManager.mActivities == 0 && mManager.mShutdownRequested)
            shutdown();
    }

    Activity(const Activity &) = delete;
    Activity &operator=(const Activity &) = delete;

private:
    UIManager &mManager;
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
