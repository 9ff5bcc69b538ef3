#pragma once

#include "foundation/core/CriticalSection.h"
#include "foundation/core/SmartPtr.h"
#include "foundation/mpl/Int2Type.h"
#include "nui/core/CallbackSubscriptor.h"
#include "nui/ui/Fwd.h"

#include <atomic>
#include <memory>
#include <string>

namespace nurel::ui {

/// The bridge to an on-screen keyboard of the platform. A component takes it with the text to edit; the platform shows
/// its keyboard and, when the user is done, reports the result, which comes back to the component by a signal.
///
/// This class holds who owns the keyboard, and the signals. What touches a platform are the hooks, which do nothing
/// here: without a platform's own overlay the keyboard counts as shown from acquire() until resign().
///
/// **For a platform**: derive, override the hooks, call end() in the destructor (hooks are out of reach after it), and
/// hand an object over by `UIManager::setKeyboardOverlay()`. When the user ends the edit, call textEditingFinished(),
/// which is the one operation that any thread may call; everything else belongs to the thread that drives the
/// `UIManager`.
///
/// Subscribers may do anything, ending the overlay included. Those that hand the keyboard on inside one another are cut
/// off at a fixed depth, with a logged warning.
class KeyboardOverlay {
public:
    /// How an edit ended.
    enum TextEditingResult {
        TEXT_ACCEPTED = 0,
        OWNER_RESIGNED = 1, ///< it gave the keyboard up, or another component took it
        OVERLAY_DISMISSED = 2,
    };

    /// A component has taken the keyboard.
    using AcquiredCallbacks = core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, KeyboardOverlay *, Component *>;

    /// For a platform's own use.
    using PlatformCallbacks = core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, KeyboardOverlay *, Component *>;

    /// An edit has ended: the component whose edit it was, which may be null; how; and the text, null unless the
    /// platform reports one.
    using FinishedCallbacks = core::CallbackSubscriptor<mpl::Int2Type<2>, 1, bool, KeyboardOverlay *, Component *,
                                                        TextEditingResult, const char *>;

    /// What a platform keeps for its keyboard. The hook _init() makes it and _shutdown() releases it.
    class PlatformData {
    public:
        PlatformData(const PlatformData &) = delete;
        PlatformData &operator=(const PlatformData &) = delete;

    protected:
        explicit PlatformData(KeyboardOverlay *owner) : mOwner(owner) {}
        virtual ~PlatformData() = default;

        KeyboardOverlay *getOwner() const { return mOwner; }

        /// `KeyboardOverlay::textEditingFinished()` of the owner. Any thread.
        void textEditingFinished(TextEditingResult result, const char *text) {
            mOwner->textEditingFinished(result, text);
        }

    private:
        KeyboardOverlay *const mOwner;
    };

    KeyboardOverlay();
    KeyboardOverlay(const KeyboardOverlay &) = delete;
    KeyboardOverlay &operator=(const KeyboardOverlay &) = delete;

    /// Takes the keyboard down and forgets the subscribers.
    virtual ~KeyboardOverlay();

    /// Gives the keyboard, and a reference, to the component, and has it shown with the text, UTF-8. Nothing happens if
    /// the component has it already. An owner before is told that it has resigned. Null only takes the keyboard away:
    /// it stays shown. The options are those of `components::TextField`; their meaning is the platform's.
    void acquire(Component *component, const char *text, unsigned int options);

    /// Ends the edit of the component, or that of any owner for null, and takes the keyboard down. The owner is told
    /// that it has resigned; a second signal, of the dismissal, is without a component. False, and nothing happens,
    /// when somebody else has the keyboard, or nobody.
    bool resign(Component *component);

    /// Null when nobody has the keyboard.
    Component *getOwner() const { return mOwner.get(); }

    /// Whether the keyboard is up. Any thread.
    bool isShown() const { return mShown; }

    AcquiredCallbacks &getAcquiredSignal() { return mAcquiredSignal; }

    /// Nothing in the toolkit sends it.
    PlatformCallbacks &getPlatformSignal() { return mPlatformSignal; }

    FinishedCallbacks &getFinishedSignal() { return mFinishedSignal; }

    // A subscriber that subscribes while the end of an edit is announced is called with that one too. These tell it.

    /// How many ends have been announced, the ones under way included.
    unsigned int getFinishCount() const;

    /// Which of them a subscriber is being told of; 0 outside of that.
    unsigned int getCurrentFinish() const;

protected:
    /// The user has ended the edit; the text, UTF-8, is copied and null counts as empty. The keyboard counts as hidden
    /// at once. The signal is sent on the render thread: at once when that calls, else with the next frame; an overlay
    /// that ends meanwhile sends none. Without a renderer it is sent by the caller.
    ///
    /// The overlay is without an owner afterwards, also when a subscriber has let a component acquire it meanwhile.
    void textEditingFinished(TextEditingResult result, const char *text);

    /// Takes the keyboard down and releases the platform's data, by the hooks. From now on nobody acquires it. Harmless
    /// when it was called before.
    void end();

private:
    /// What outlives the overlay for those that are at work for it.
    struct Life;
    class OwnerRelease;
    class Sending;

    /// Makes the platform's data, which _shutdown() gets back. Called ahead of the first _show().
    virtual PlatformData *_init() { return nullptr; }
    virtual void _shutdown(PlatformData *) {}

    /// Brings the keyboard up with the text.
    virtual void _show(unsigned int, const char *) {}

    /// The keyboard is up, and another component has taken it.
    virtual void _refresh(unsigned int, const char *) {}

    virtual void _dismiss() {}

    PlatformData *init() { return _init(); }
    void shutdown(PlatformData *data);
    void show(unsigned int options, const char *text);
    void dismiss();
    void triggerInputFinished(core::SmartPtr<Component> owner, TextEditingResult result, std::string *text);

    /// Announces the end of an edit. False when the overlay did not outlive it.
    bool sendFinished(const core::SmartPtr<Component> &owner, TextEditingResult result, const char *text);

    core::SmartPtr<Component> shareOwner() const;
    void setOwner(core::SmartPtr<Component> owner);

    const std::shared_ptr<Life> mLife;
    mutable core::CriticalSection mOwnerLock; ///< the end of an edit reads the owner from its own thread
    core::SmartPtr<Component> mOwner;
    AcquiredCallbacks mAcquiredSignal;
    PlatformCallbacks mPlatformSignal;
    FinishedCallbacks mFinishedSignal;
    PlatformData *mPlatformData = nullptr;
    std::atomic<bool> mShown{false};
    bool mEnded = false;
};

} // namespace nurel::ui
