#include "nui/ui/KeyboardOverlay.h"

#include "foundation/core/Lock.h"
#include "foundation/logging/Logger.h"
#include "nengine/renderer/Renderer.h"
#include "nui/ui/Component.h"

#include <exception>
#include <utility>

namespace nurel::ui {

namespace {

/// How deep subscribers may hand the keyboard on inside one another.
constexpr unsigned int MAXIMUM_DEPTH = 16;

} // namespace

struct KeyboardOverlay::Life {
    KeyboardOverlay *overlay; ///< null when it has gone; for the frame thread
    unsigned int depth = 0;   ///< ends that are announced inside one another
    unsigned int count = 0;
    unsigned int current = 0;
};

class KeyboardOverlay::Sending {
public:
    explicit Sending(std::shared_ptr<Life> life) : mLife(std::move(life)), mOuter(mLife->current) {
        ++mLife->depth;
        mLife->current = ++mLife->count;
    }
    ~Sending() {
        mLife->current = mOuter;
        --mLife->depth;
    }
    Sending(const Sending &) = delete;
    Sending &operator=(const Sending &) = delete;

private:
    const std::shared_ptr<Life> mLife;
    const unsigned int mOuter;
};

/// Takes the keyboard from whoever has it at the end of the scope, also when a subscriber fails.
class KeyboardOverlay::OwnerRelease {
public:
    explicit OwnerRelease(std::shared_ptr<Life> life) : mLife(std::move(life)) {}
    ~OwnerRelease() {
        if (mLife->overlay)
            mLife->overlay->setOwner(nullptr);
    }
    OwnerRelease(const OwnerRelease &) = delete;
    OwnerRelease &operator=(const OwnerRelease &) = delete;

private:
    const std::shared_ptr<Life> mLife;
};

KeyboardOverlay::KeyboardOverlay() : mLife(std::make_shared<Life>(Life{this})) {}

KeyboardOverlay::~KeyboardOverlay() {
    end();
    mAcquiredSignal.removeCallbacks();
    mPlatformSignal.removeCallbacks();
    mFinishedSignal.removeCallbacks();
    mLife->overlay = nullptr;
}

void KeyboardOverlay::end() {
    mEnded = true;
    try {
        dismiss();
    } catch (const std::exception &e) {
        logging::Logger::mROOT_LOGGER.error("A callback failed while the keyboard overlay ended", e);
    } catch (...) {
        logging::Logger::mROOT_LOGGER.error("A callback failed while the keyboard overlay ended");
    }
    shutdown(mPlatformData);
}

void KeyboardOverlay::shutdown(PlatformData *data) {
    mPlatformData = nullptr;
    if (data)
        _shutdown(data);
}

unsigned int KeyboardOverlay::getFinishCount() const {
    return mLife->count;
}

unsigned int KeyboardOverlay::getCurrentFinish() const {
    return mLife->current;
}

core::SmartPtr<Component> KeyboardOverlay::shareOwner() const {
    const core::Lock lock(mOwnerLock);
    return mOwner;
}

void KeyboardOverlay::setOwner(core::SmartPtr<Component> owner) {
    const core::Lock lock(mOwnerLock);
    mOwner.swap(owner); // the one before goes when the lock is left
}

void KeyboardOverlay::acquire(Component *component, const char *text, unsigned int options) {
    if (mEnded || component == mOwner.get())
        return;
    const std::shared_ptr<Life> life = mLife;
    const core::SmartPtr<Component> taker(component);
    const core::SmartPtr<Component> previous = mOwner;
    const std::string edited(text ? text : ""); // a subscriber may change the text that the argument is a part of
    // 1.
    if (previous && !sendFinished(previous, OWNER_RESIGNED, nullptr))
        return;
    // 2.
    setOwner(taker);
    // 3.
    if (!taker)
        return;
    mAcquiredSignal.triggerCallbacks(this, component);
    if (life->overlay && mOwner == taker) // else a subscriber has let it go again
        show(options, edited.c_str());
}

bool KeyboardOverlay::resign(Component *component) {
    const core::SmartPtr<Component> owner = mOwner;
    if (!owner || (component && component != owner.get()))
        return false;
    if (!sendFinished(owner, OWNER_RESIGNED, nullptr))
        return true;
    setOwner(nullptr);
    dismiss();
    return true;
}

void KeyboardOverlay::show(unsigned int options, const char *text) {
    if (mShown.exchange(true)) {
        _refresh(options, text);
        return;
    }
    if (!mPlatformData)
        mPlatformData = init();
    _show(options, text);
}

void KeyboardOverlay::dismiss() {
    if (!mShown.exchange(false))
        return;
    _dismiss();
    const core::SmartPtr<Component> owner = mOwner;
    const OwnerRelease release(mLife);
    sendFinished(owner, OVERLAY_DISMISSED, nullptr);
}

void KeyboardOverlay::textEditingFinished(TextEditingResult result, const char *text) {
    // 1.
    mShown = false;
    // 2.
    auto copy = std::make_unique<std::string>(text ? text : "");
    core::SmartPtr<Component> owner = shareOwner();
    // 3.
    renderer::Renderer *renderer = renderer::Renderer::getSingletonPtr();
    if (!renderer) {
        triggerInputFinished(std::move(owner), result, copy.release());
        return;
    }
    const auto finish = [](const std::shared_ptr<Life> &life, core::SmartPtr<Component> edited,
                           TextEditingResult ending, std::unique_ptr<std::string> string) {
        if (life->overlay)
            life->overlay->triggerInputFinished(std::move(edited), ending, string.release());
    };
    renderer->getTaskQueue().post(finish, mLife, std::move(owner), result, std::move(copy));
}

void KeyboardOverlay::triggerInputFinished(core::SmartPtr<Component> owner, TextEditingResult result,
                                           std::string *text) {
    const std::unique_ptr<std::string> kept(text);
    const OwnerRelease release(mLife); // also from one that acquires it meanwhile
    sendFinished(owner, result, kept->c_str());
}

bool KeyboardOverlay::sendFinished(const core::SmartPtr<Component> &owner, TextEditingResult result, const char *text) {
    const std::shared_ptr<Life> life = mLife;
    if (life->depth >= MAXIMUM_DEPTH) {
        logging::Logger::mROOT_LOGGER.warn("Subscribers hand the keyboard on inside one another, %u deep: dropped",
                                           life->depth);
        return true;
    }
    const Sending sending(life);
    mFinishedSignal.triggerCallbacks(this, owner.get(), result, text);
    return life->overlay != nullptr;
}

} // namespace nurel::ui
