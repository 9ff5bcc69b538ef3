#include "nui/ui/UIManager.h"

#include "nengine/renderer/Renderer.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/detail/UIManagerScopes.h"

#include <algorithm>

namespace nurel::ui {

AnimationContext *UIManager::newAnimation() {
    return new AnimationContext;
}

AnimationContext *UIManager::beginAnimation() {
    mCurrentAnimation = newAnimation();
    return mCurrentAnimation.get();
}

void UIManager::commitAnimation(AnimationContext *context) {
    if (!context)
        return;
    if (mUpdatingAnimations) {
        mCommitQueue.emplace_back(context);
    } else {
        mRunningAnimations.emplace_back(context);
        context->committed();
    }
    if (mCurrentAnimation == context)
        mCurrentAnimation = nullptr;
}

void UIManager::cancelAnimation(AnimationContext *context) {
    if (!context || context->getRefCount() == 0)
        return; // null, or never committed: it is the caller's still
    const core::SmartPtr<AnimationContext> kept(context);
    if (mCurrentAnimation == context)
        mCurrentAnimation = nullptr;
    if (mUpdatingAnimations) {
        mCancelQueue.push_back(kept);
        return;
    }
    const auto found = std::find(mRunningAnimations.begin(), mRunningAnimations.end(), context);
    if (found != mRunningAnimations.end())
        mRunningAnimations.erase(found);
}

void UIManager::updateAnimations(float) {
    if (mUpdatingAnimations)
        return; // update() was called from inside an animation
    walkAnimations();
    runDeferredAnimations();
}

void UIManager::walkAnimations() {
    const detail::FlagScope updating(mUpdatingAnimations);
    const auto milliseconds =
        static_cast<AnimationContext::Microseconds>(renderer::Renderer::getSingleton().getTimer().getMilliseconds());
    const AnimationContext::Microseconds now = milliseconds * 1000;
    // Nobody else changes the deque meanwhile: commits and cancels wait.
    for (std::size_t i = 0; i < mRunningAnimations.size();) {
        const core::SmartPtr<AnimationContext> context = mRunningAnimations[i];
        context->started(now);
        if (context->update(now))
            mRunningAnimations.erase(mRunningAnimations.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }
}

void UIManager::runDeferredAnimations() {
    if (!mCommitQueue.empty()) {
        Contexts committed;
        committed.swap(mCommitQueue);
        for (const core::SmartPtr<AnimationContext> &context : committed)
            commitAnimation(context.get());
    }
    if (!mCancelQueue.empty()) {
        Contexts cancelled;
        cancelled.swap(mCancelQueue);
        for (const core::SmartPtr<AnimationContext> &context : cancelled)
            cancelAnimation(context.get());
    }
}

} // namespace nurel::ui
