#pragma once

#include "foundation/mpl/Int2Type.h"
#include "nmain/core/NamedObject.h"
#include "nui/core/CallbackSubscriptor.h"
#include "nui/ui/UIEvent.h"

namespace nurel::ui {

/// A link of the chain through which events travel from a component towards the root of its tree.
///
/// An event goes to handleEvent() of the first link. A link whose event mask does not admit the event passes it on
/// untouched. Before a link acts, filterEvent() asks the whole chain towards the root, where anyone may take the event
/// away or give it to another handler. What an operation returns is the handler that consumed the event, null when
/// there was none.
///
/// This base admits events for the filter pass only and forwards everything else unchanged. Links are used on the
/// thread that delivers events, the one that drives the `UIManager`.
class UIEventHandler : public core::NamedObject,
                       public core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, class UIEventHandler *,
                                                        const UIEvent &, class UIEventHandler *&> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// Called on the filter pass with this handler, the event, and the handler that is about to get it: a callback may
    /// put another one, or null, in its place. Subscribe by `handler->FilterCallbacks::subscribeCallback(...)`.
    using FilterCallbacks =
        core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, UIEventHandler *, const UIEvent &, UIEventHandler *&>;

    /// Lets the subscription template be named through an object whose class has several signals.
    template <class Tag, int N, class R, class... A>
    using CallbackSubscriptor = core::CallbackSubscriptor<Tag, N, R, A...>;

    static constexpr unsigned int EVENT_MASK_HITTABLE = UIEvent::EVENT_MASK_HITTABLE;

    /// Focus, hover and mouse events, and hittable.
    static constexpr unsigned int EVENT_MASK_DEFAULT =
        UIEvent::ET_FOCUS_EVENT | UIEvent::ET_HOVER_EVENT | UIEvent::ET_MOUSE_EVENT | UIEvent::EVENT_MASK_HITTABLE;

    /// How often one event may be redirected by filters before it is dropped: handlers that redirect in a ring end
    /// here.
    static constexpr unsigned int MAXIMUM_REDIRECTS = 64;

    explicit UIEventHandler(const char *name = "") : core::NamedObject(name) {}

    /// The next link towards the root; null at the end.
    virtual UIEventHandler *nextHandler() { return nullptr; }

    /// Delivers an event to this link. Returns the handler that consumed it, null when there was none or when that
    /// handler did not outlive the event.
    virtual UIEventHandler *handleEvent(const UIEvent &event);

    /// The filter pass: this link's subscribers first, then the next link. Returns who is to get the event instead of
    /// `handler`; the link nearest to the root has the last word.
    virtual UIEventHandler *filterEvent(const UIEvent &event, UIEventHandler *handler);

    /// The bits of the mask that are among the given ones.
    unsigned int acceptsEvent(unsigned int bits) const { return mEventMask & bits; }

    /// Whether all of the bits are set.
    bool isEventEnabled(unsigned int bits) const { return (mEventMask & bits) == bits; }

    unsigned int getEventMask() const { return mEventMask; }
    void setEventMask(unsigned int mask) { mEventMask = mask; }
    void enableEvents(unsigned int bits) { mEventMask |= bits; }
    void disableEvents(unsigned int bits) { mEventMask &= ~bits; }

    /// Copies name and event mask. Subscriptions are not cloned.
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    friend class UIManager; // asks the keepers

    /// Keeps a handler in memory for a while that its own callbacks might destroy. An object that no SmartPtr holds,
    /// such as one on the stack, stays its owner's. Holding null is allowed.
    class Keeper {
    public:
        explicit Keeper(UIEventHandler *handler);
        ~Keeper() { release(); }
        Keeper(const Keeper &) = delete;
        Keeper &operator=(const Keeper &) = delete;

        /// Ends the keeping; the handler, or null if it is gone by that.
        UIEventHandler *release();

        /// Whether nothing but keepers holds the object: it must not be disposed of.
        static bool isHeldByKeepersOnly(const core::IRefCount *object);

    private:
        UIEventHandler *mHandler;
        bool mCounted;
        Keeper *mOuter = nullptr; ///< the next keeper of this thread whose object is nobody else's
        static thread_local Keeper *mInnermost;
    };

    /// Act on one event and return who consumed it. The base asks the next link.
    virtual UIEventHandler *processEvent(const TextEvent &event);
    virtual UIEventHandler *processEvent(const KeyEvent &event);
    virtual UIEventHandler *processEvent(const DragEvent &event);
    virtual UIEventHandler *processEvent(const WheelEvent &event);
    virtual UIEventHandler *processEvent(const ClickEvent &event);
    virtual UIEventHandler *processEvent(const MouseEvent &event);
    virtual UIEventHandler *processEvent(const HoverEvent &event);
    virtual UIEventHandler *processEvent(const FocusEvent &event);

private:
    template <class Event>
    UIEventHandler *passOn(const Event &event);

    unsigned int mEventMask = EVENT_MASK_DEFAULT;
};

} // namespace nurel::ui
