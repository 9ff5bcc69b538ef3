#pragma once

#include "foundation/core/SmartPtr.h"
#include "foundation/mpl/Int2Type.h"
#include "nui/core/CallbackSubscriptor.h"
#include "nui/ui/ComponentHandler.h"
#include "nui/ui/Fwd.h"
#include "nui/ui/Transition.h"

#include <deque>
#include <list>
#include <memory>
#include <string>

namespace nurel::ui::handlers {

/// What a `NavigationHandler` tells its subscribers about a body.
enum NavigationAction : int {
    NAVIGATION_PUSH_BEGIN = 0, ///< a body is being pushed
    NAVIGATION_POP_BEGIN = 1,  ///< a body is being taken off the stack
    NAVIGATION_PUSH_END = 2,   ///< a push has ended
    NAVIGATION_POP_END = 3     ///< a pop has ended, or a body has left for good
};

/// The answer to whether the back button may pop. Anything but ALLOW stops it.
enum PopQueryResult : int { POP_QUERY_DENY = 0, POP_QUERY_ALLOW = 1 };

/// A stack of screens, its *bodies*, with a title bar: the target is a panel that fills its parent, with a
/// `components::NavigationBar` at the top and one body at a time under it. A push brings a body in and a pop takes it
/// out again, each at once or with an animation that both bodies take part in:
///
///     core::SmartPtr<handlers::NavigationHandler> screens(new handlers::NavigationHandler(50, 30));
///     widget->addChild(screens->getTarget());
///     screens->pushBody(menu, "Menu", nullptr, nullptr, nullptr);
///     screens->pushBody(options, "Options", nullptr, nullptr, 0.3f, Transition::T_CROSS_FADE);
///
/// The bar's left button goes back. It shows the back text of the body on top, or else the title of the one below.
///
/// **While a transition runs** no event reaches anything inside the target, and requests wait for its end. So ask for a
/// pop only when isAnimating() is false: a pop that had to wait never gets its turn while there is a body to pop, and
/// holds up what waits behind it.
///
/// **Ownership.** The handler holds its target, and everything it is given for as long as it needs it: bodies, right
/// elements and animations are taken over, also when the operation fails. Whoever makes the handler holds it; when it
/// goes, the target is emptied. Callbacks may do everything here, and let the handler go if a `core::SmartPtr` holds
/// it. It is not meant to be cloned.
///
/// Animations are committed by the handler. One that the application cancels never ends, and neither does the
/// transition. Use the handler outside of an open animation.
///
/// A body that is another container's child raises `core::IllegalStateException` "Component already has a parent", and
/// so does a right element; the stack is left as it was. For a request that has to wait this happens when its turn
/// comes, in the frame's update.
class NavigationHandler : public ComponentHandler,
                          public core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, class NavigationHandler *,
                                                           Component *, NavigationAction, int>,
                          public core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, class NavigationHandler *,
                                                           Component *, PopQueryResult &> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// Told of a body, what happens to it, and its place relative to the top of the stack at that time: 0 the top, 1
    /// just under it, -1 above the top or off the stack. The body is null where the last one has been popped.
    using NavigationCallbacks =
        core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, NavigationHandler *, Component *, NavigationAction, int>;

    /// Asked before the back button pops, with the body on show.
    using PopQueryCallbacks =
        core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, NavigationHandler *, Component *, PopQueryResult &>;

    /// Heights in pixels. The bodies get what is left under the bar.
    NavigationHandler(float barHeight, float buttonHeight);
    ~NavigationHandler() override;

    // --- Changing the body. A null title is the body's name, a null back text is empty.

    /// Puts a body on top; null is ignored. Without an animation it is on show at once.
    void pushBody(Component *body, const char *title, const char *backText, Component *rightElement,
                  AnimationContext *animation);

    /// Builds the animation from the body that will be on show by then. Returns it while the handler has it, else null,
    /// also for T_NONE: subscribe to it at once. One that has to wait is built anew when its turn comes.
    AnimationContext *pushBody(Component *body, const char *title, const char *backText, Component *rightElement,
                               float duration, Transition::Type type);

    /// Replaces the body on top. A later pop plays the animation that had brought the replaced one in. With a null body
    /// the one on top only leaves the stack.
    void setBody(Component *body, const char *title, const char *backText, Component *rightElement,
                 AnimationContext *animation);
    AnimationContext *setBody(Component *body, const char *title, const char *backText, Component *rightElement,
                              float duration, Transition::Type type);

    /// Takes the body on top out with the animation, played backwards. Null: the one that is stored with the body, as a
    /// rule that which brought it in; without one, at once.
    void popBody(AnimationContext *animation = nullptr);

    /// Takes a body out from under the one on top; the stored animations around the hole are adjusted, and with
    /// `updateBackText` the body above it gets the title of the one below as its back text. Never waits.
    // Index 0 takes the top off the stack, while it stays on show until the next transition ends.
    void removeBodyAt(unsigned int index, bool updateBackText);

    // --- What is stored with a body. Bodies that are not on the stack are ignored.

    void setBodyTitle(Component *body, const char *title);
    void setBodyBackText(Component *body, const char *text);

    /// Null stands for the body on top. The getter returns null when there is none.
    void setBodyAnimation(Component *body, AnimationContext *animation);
    AnimationContext *getBodyAnimation(Component *body) const;

    // --- What there is

    components::NavigationBar *getNavigationBar() const;
    Container *getBodyContainer() const { return mBodyContainer.get(); }

    /// The body on show; while a transition runs, still the one before.
    Component *getBody() const { return mBody.get(); }

    unsigned int getStackSize() const { return static_cast<unsigned int>(mStack.size()); }

    /// Index 0 is the top; null past the end.
    Component *getBodyAt(unsigned int index) const;

    /// Requests that wait do not count.
    bool containsBody(const Component *body) const;

    /// Whether a transition runs or a request waits.
    bool isAnimating() const { return mAnimating || !mPending.empty(); }

    /// Whether the body takes part in that: it comes, goes or waits.
    bool isAnimating(const Component *body) const;

    /// Stops every event while a transition runs.
    UIEventHandler *filterEvent(const UIEvent &event, UIEventHandler *handler) override;

private:
    /// One entry of the stack.
    struct BodyInfo {
        std::string title;
        std::string backText; ///< empty: the title of the body below
        core::SmartPtr<Component> body;
        core::SmartPtr<Component> rightElement;
        core::SmartPtr<AnimationContext> animation; ///< brought the body in; played backwards it takes it out
    };

    /// Shared with the operations that are under way: a callback may take it off the stack meanwhile.
    using BodyInfoPtr = std::shared_ptr<BodyInfo>;
    using Stack = std::deque<BodyInfoPtr>;

    enum PendingKind { PENDING_PUSH = 0, PENDING_SET = 1, PENDING_POP = 2 };

    /// A request that waits.
    struct Pending {
        PendingKind kind;
        BodyInfoPtr info;
        Transition::Type transition = Transition::T_NONE; ///< other than T_NONE: the animation is built anew
    };

    /// A subscription to an animation that runs.
    struct Running {
        unsigned int number;
        core::SmartPtr<AnimationContext> animation;
        int id;
        bool hasStarted;
    };

    static BodyInfoPtr newBodyInfo(Component *body, const char *title, const char *backText, Component *rightElement,
                                   AnimationContext *animation);

    static bool canTake(const Container &container, const Component *child);
    static void checkCanTake(Container &container, Component *child);

    bool isGateOpen(const Component *body) const;
    void checkCanShow(Component *body, Component *rightElement);
    bool isPending(const Component *body) const;
    void clearPending();
    void processPending();
    bool runPending(const Pending &pending);

    void _pushBody(const BodyInfoPtr &info, bool notify);
    void _setBody(const BodyInfoPtr &info);
    bool _popBody(AnimationContext *animation);
    void setPendingTransition(Transition::Type type);
    Component *guessAnimationSourceBody() const;

    BodyInfoPtr pop(bool notifyBelow);
    void popAndDelete();
    bool isOnStack(const BodyInfoPtr &info) const;
    void takeOff(const BodyInfoPtr &info);
    Stack::const_reverse_iterator findBodyInfo(const Component *body) const;

    void change(AnimationContext *animation, Component *body, NavigationAction action, bool notify);
    bool setContainerBody(AnimationContext *animation, const AnimationEvent &event, Component *body,
                          NavigationAction action, bool notify);
    void replaceBody(Component *body);
    void showTop();
    void showBackText(const char *text);

    void setRestoreAC(AnimationContext *animation, Component *body);
    void applyRestoreAC(BodyInfo &info);
    static void retarget(const BodyInfo &below, const BodyInfo &removed, const BodyInfo &above);

    void fire(Component *body, NavigationAction action, int place);
    bool backClick(UIEventHandler *handler, const ClickEvent &event);

    core::SmartPtr<Container> mRoot; ///< the target, unless another one was set
    core::SmartPtr<components::NavigationBar> mNavigationBar;
    core::SmartPtr<Container> mBodyContainer;
    core::SmartPtr<Component> mBackButton;
    int mBackClickId = 0; ///< of the subscription to the back button

    core::SmartPtr<Component> mBody;
    Stack mStack;                                       ///< the top is at the back
    core::SmartPtr<AnimationContext> mRestoreAnimation; ///< of a body that setBody() has replaced
    core::SmartPtr<Component> mRestoreTarget;           ///< that body
    bool mAnimating = false;
    core::SmartPtr<Component> mAnimatingBody; ///< on show when the transition has ended
    std::list<Pending> mPending;
    bool mProcessing = false; ///< the head of the list is at work
    std::list<Running> mRunning;
    unsigned int mLastNumber = 0;
};

} // namespace nurel::ui::handlers
