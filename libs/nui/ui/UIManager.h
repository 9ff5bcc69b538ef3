#pragma once

#include "foundation/core/CriticalSection.h"
#include "foundation/core/SmartPtr.h"
#include "foundation/mpl/Int2Type.h"
#include "nengine/Fwd.h"
#include "ninput/input/Keyboard.h"
#include "ninput/input/Mouse.h"
#include "nmain/core/Names.h"
#include "nmain/math/Vector2.h"
#include "nmain/math/Vector3.h"
#include "nmain/math/ViewPort.h"
#include "nui/core/CallbackSubscriptor.h"
#include "nui/core/Singleton.h"
#include "nui/ui/CursorPosition.h"
#include "nui/ui/Fwd.h"
#include "nui/ui/Ray.h"

#include <atomic>
#include <deque>
#include <list>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace nurel::ui {

/// Runs the toolkit: owns the scene below "UI.root" and the render pass that draws it, the widgets, the running
/// animations and the state of the input. The application feeds it input, calls updateEvents() and update() once a
/// frame, in the order it likes, and draws getRenderPass(). Screen space is in UI pixels from the top left: x to the
/// right, y down.
///
/// Made by its first use, which needs the engine: without one that raises `core::IllegalStateException`. Ended by
/// shutdown(), ahead of the engine's end.
///
/// All belongs to one thread, the frame thread, except the operations marked "any thread". Callbacks may call
/// everything here, updateEvents(), update() and shutdown() included; shutdown then waits until the outermost operation
/// has ended.
class UIManager : public core::Singleton<UIManager, 0, 0, core::Singleton_Singlethread_Policy> {
    using Policy = core::Singleton_Singlethread_Policy;
    friend class core::Singleton<UIManager, 0, 0, Policy>;
    friend class core::Singleton_Middle<UIManager, Policy, 0, 0>;

public:
    /// What stage of a frame begins.
    enum StageEvent {
        STAGE_UPDATE = 1, ///< the start of update()
        STAGE_EVENTS = 2, ///< the start of updateEvents()
    };

    enum TabStopDirection { FORWARD = 0, BACKWARD = 1 };

    /// Told of every event that the manager sends: the handler that it was sent to, which may be null, the event, and
    /// what it came to, which a subscriber may replace.
    using EventObserver =
        core::CallbackSubscriptor<mpl::Int2Type<1>, 1, bool, UIEventHandler *, const UIEvent &, UIEventHandler *&>;
    using StageCallbacks = core::CallbackSubscriptor<UIManager, 1, bool, StageEvent>;

    UIManager(const UIManager &) = delete;
    UIManager &operator=(const UIManager &) = delete;

    /// Ends the manager, with its dialogs, skins, templates, widgets and animations. Harmless when there is none. A
    /// later use makes a new one. From inside a callback it takes effect when the manager's outermost operation has
    /// ended.
    static void shutdown();

    // --- widgets ---

    /// Puts the widget on top of the others at the next updateEvents(). The second argument is not used. Null is
    /// ignored. Any thread.
    void addWidget(Widget *widget, Component *unused = nullptr);

    /// Takes the widget out at the next updateEvents(); its components lose their views. One that is not there then is
    /// ignored. Any thread.
    void removeWidget(Widget *widget);

    /// Takes all widgets out at the next updateEvents(); they keep their views. Any thread.
    void clearWidgets();

    /// Whether the widget is live: false until the queue of adds and removes has run.
    bool hasWidget(const Widget *widget) const;

    /// In stacking order, the last on top.
    unsigned int getWidgetCount() const { return static_cast<unsigned int>(mWidgets.size()); }

    /// Null past the end.
    Widget *getWidgetAt(unsigned int index) const;

    /// Looks among the live widgets first and then among those that wait to be added; null when there is none.
    Widget *getWidgetByName(const char *name) const;

    /// The first widget on the way up from the component, itself included; null when there is none.
    Widget *getWidget(Component *component) const;
    Widget *getWidgetAtCursor() const { return getWidget(mHovered); }

    /// Gives the component a view of the default skin, with those of its children, unless it has a view.
    void setView(Component *component);

    // --- the frame ---

    /// Moves the animations on, updates every widget with a dirty bit, and then the scene. Allocates nothing when
    /// nothing has changed.
    void update();

    /// Runs the widget queue and then turns the input since the last call into events; takes one button change a call.
    /// A widget without a skin raises `core::IllegalStateException`; what was queued behind it waits for the next call.
    void updateEvents();

    /// Places the widgets that depend on the screen's size anew, and calls update().
    void updateWidgetPositions();

    /// Makes everything anew: positions, styles and views.
    void refresh();

    /// Takes the size of the screen over: view port, camera, widgets. With an extent of 0 the camera stays as it is.
    /// Always false, by which it stays subscribed to the renderer.
    bool resize(const renderer::ResizeEventData &data);

    /// Seconds of the renderer's frame clock at the last update().
    float getTime() const { return mTime; }

    // --- screen and scene ---

    scene::Node *getRoot() const { return mRoot.get(); }
    renderer::RenderPass *getRenderPass() const { return mRenderPass.get(); }

    /// The screen in UI pixels.
    const math::ViewPort &getViewPort() const { return mViewPort; }
    unsigned int getScreenWidth() const { return mViewPort.getWidth(); }
    unsigned int getScreenHeight() const { return mViewPort.getHeight(); }

    /// UI pixels for each screen pixel. Setting it has the fonts rebuilt.
    const math::Vector2 &getScale() const { return mScale; }
    void setScale(const math::Vector2 &scale);

    /// Setting a camera gives it the projection and the place that show the UI; null is ignored. The manager reads it
    /// on the thread that calls setMousePos(), under its own lock only.
    scene::Camera *getCamera() const { return mCamera.get(); }
    void setCamera(scene::Camera *camera);

    /// Where all meshes of the toolkit get their storage; null, the default, for the engine's own. One whose mesh data
    /// lacks what UI elements need is refused with a logged error.
    geometry::MeshDataAllocator *getGeometryAllocator() const { return mGeometryAllocator.get(); }
    void setGeometryAllocator(geometry::MeshDataAllocator *allocator);

    // --- animations ---

    /// A new context, which belongs to the caller and is not opened.
    AnimationContext *newAnimation();

    /// Opens a new context and returns it. One that was open is dropped with what was recorded in it. Until the commit
    /// the animatable setters of all components record into it.
    AnimationContext *beginAnimation();

    /// The open context, or null.
    AnimationContext *getCurrentAnimation() const { return mCurrentAnimation.get(); }

    /// Starts a context, closing it if it is the open one. Null is ignored. From inside an animation's callback it
    /// takes effect at the end of the pass. A context that runs already runs once more beside itself.
    void commitAnimation(AnimationContext *context);
    void commitAnimation() { commitAnimation(mCurrentAnimation.get()); }

    /// Stops a context where it is, without an event, closing it if it is the open one. Null is ignored. From inside an
    /// animation's callback it takes effect at the end of the pass.
    void cancelAnimation(AnimationContext *context);
    void cancelAnimation() { cancelAnimation(mCurrentAnimation.get()); }

    // --- input ---

    /// The cursor in screen pixels. Any thread.
    void setMousePos(const CursorPosition &position);

    /// The cursor in UI pixels. Any thread.
    CursorPosition getMousePos() const;

    /// Queues a change of a button; at most 8 wait, more are dropped, and all are while input is disabled. Any thread.
    void setMouseButton(input::Mouse::MouseButton button, input::Mouse::ButtonState state);

    /// The wheel's counter, absolute. Any thread.
    void setMouseWheel(int counter) { mWheel.store(counter, std::memory_order_relaxed); }

    /// UTF-8 text for the component in focus; lost when there is none. Null is ignored. Any thread.
    void textInput(const char *text);

    /// Where text is being entered, in screen pixels as of the last update: the caret of the text field in focus, or
    /// else the bounds of what has the focus. False, and the bounds are left alone, when nobody there takes text. A
    /// program tells its window, so that an input method shows beside it what is being composed.
    bool getTextInputBounds(math::Vector2 &minimum, math::Vector2 &maximum) const;

    bool isEnabled() const { return mEnabled.load(std::memory_order_relaxed); }

    /// Switches all input off or on. Off drops the focus and the queued button changes.
    void setEnabled(bool enabled);

    Component *getComponentAtCursor() const { return mHovered; }
    Component *getDragging() const { return mDragging; }

    /// Any thread.
    Component *getFocus() const { return mFocus.load(std::memory_order_relaxed); }

    /// Takes the focus from the component that has it and offers it to another one, or to none. Who takes the event in
    /// the component's chain of handlers gets the focus; an invisible component gets none. A change that a focus
    /// listener makes meanwhile stands, and such changes are cut off at a fixed depth. Any thread, as far as the
    /// manager goes; the events go out on the calling one, so the components concerned have to be at rest.
    void setFocus(Component *component);

    /// Moves the focus to the next sibling by tab stop: the first in child order whose stop is not below the present
    /// one.
    void nextTabStop(TabStopDirection direction);
    void prevTabStop() { nextTabStop(BACKWARD); }

    /// UI pixels that the cursor has to pass before a press becomes a drag; 4 at first.
    static float getMinDragDistance() { return MIN_DRAG_DISTANCE; }
    static float getMinDragDistanceSqr() { return MIN_DRAG_DISTANCE_SQR; }
    static void setMinDragDistance(float distance);

    static float MIN_DRAG_DISTANCE;
    static float MIN_DRAG_DISTANCE_SQR;

    // --- on-screen keyboard ---

    /// Gives the on-screen keyboard to a component with the text to edit, see `KeyboardOverlay::acquire()`, and returns
    /// the overlay. Makes a plain one if there is none; while the manager ends that gives null.
    KeyboardOverlay *acquireKeyboard(Component *component, const char *text, unsigned int options);

    /// Null until somebody has asked for the keyboard, or the platform has brought its own.
    KeyboardOverlay *getKeyboardOverlay() const { return mKeyboardOverlay.get(); }

    /// Takes a platform's overlay in place of the one before, which ends. It ends with the manager at the latest. After
    /// null the next acquireKeyboard() makes a plain one.
    void setKeyboardOverlay(std::unique_ptr<KeyboardOverlay> overlay);

    // --- signals ---

    EventObserver &getEventObserver() { return mEventObserver; }
    StageCallbacks &getStageCallbacks() { return mStageCallbacks; }

    // --- what components tell the manager ---

    /// To be called when something has stopped being enabled or visible: what is hovered, focused or dragged and no
    /// longer enabled all the way up is let go.
    void checkEnabledValidity();

    /// To be called when a component leaves the tree or dies: the manager forgets it.
    void checkComponentRemoval(Component *component);

private:
    class Activity;
    class Removal;
    struct InputPass;

    struct WidgetQueueEntry {
        enum Action { ADD = 0, REMOVE = 1, CLEAR = 2 };

        Action action;
        core::SmartPtr<Widget> widget;
    };

    /// The cursor and the ray through it, taken together.
    struct Pointer {
        CursorPosition cursor;
        Ray ray;
    };

    using ButtonChange = std::pair<input::Mouse::MouseButton, input::Mouse::ButtonState>;
    using Widgets = std::list<core::SmartPtr<Widget>>;
    using Contexts = std::deque<core::SmartPtr<AnimationContext>>;

    UIManager();
    ~UIManager();

    // lifecycle
    void createScene();
    void subscribe();
    void unsubscribe();
    void removeAllWidgets();
    void releaseRest();
    void keepForPass(const core::IRefCount *object);
    void releaseKept();

    // widgets
    void queueWidget(WidgetQueueEntry::Action action, Widget *widget);
    void processQueue();
    void _addWidget(Widget *widget);
    void _removeWidget(Widget *widget);
    void _clearWidgets();
    void endPointerActions();
    template <class Visit>
    void forEachWidget(Visit visit);

    // screen
    void resizeToScreen();
    void setUpCamera();

    // animations
    void updateAnimations(float time);
    void walkAnimations();
    void runDeferredAnimations();

    // input
    Component *handleEvent(UIEventHandler *handler, const UIEvent &event);
    Component *hitTest(const Ray &ray, math::Vector3 &point) const;
    Pointer takePointer() const;
    bool takeInput(InputPass &pass);
    void dispatchPendingText();
    void press(InputPass &pass);
    void release(InputPass &pass);
    void move(InputPass &pass);
    void hover(InputPass &pass);
    void beginDrag(const InputPass &pass);
    void drag(const InputPass &pass, const CursorPosition &from);
    void leaveHovered(const Pointer &pointer);
    void cancelMouseAction();
    void _keyboardCallback(input::Keyboard::KeyboardCallBackInfo &info);

    // focus
    void takeFocusAway(Component *successor);
    void nextTabStop(Component *component, TabStopDirection direction);
    void nextTabStop(Component *component, Container *container, TabStopDirection direction);

    mutable core::CriticalSection mLock;
    std::deque<WidgetQueueEntry> mWidgetQueue;
    Widgets mWidgets;
    unsigned int mWidgetsRevision = 0; ///< raised by every change of the list, for walks that are under way
    bool mProcessingQueue = false;
    core::SmartPtr<scene::Node> mRoot;
    unsigned int mScreenPixelWidth = 0;
    unsigned int mScreenPixelHeight = 0;
    math::ViewPort mViewPort = math::ViewPort(480, 320);
    math::Vector2 mScale = math::Vector2(1, 1);
    core::SmartPtr<scene::Camera> mCamera;
    core::SmartPtr<renderer::RenderView> mRenderView;
    core::SmartPtr<renderer::RenderPass> mRenderPass;
    std::unique_ptr<scene::VisibilitySet> mVisibilitySet;

    CursorPosition mLastCursor;
    Pointer mPointer;
    std::atomic<int> mWheel{0};
    int mLastWheel = 0;
    std::deque<ButtonChange> mButtonQueue;
    std::atomic<bool> mEnabled{true};
    Component *mHovered = nullptr;
    Component *mPressed = nullptr;
    CursorPosition mPressPosition;
    std::atomic<Component *> mFocus{nullptr};
    unsigned int mFocusDepth = 0;
    Component *mDragging = nullptr;
    bool mDragJustStarted = false; ///< the next move is the first after the begin
    math::Vector2 mDragScrollOffset = math::Vector2(0, 0);
    bool mScrolledDuringDrag = false;
    std::string mTextBuffer;

    core::SmartPtr<AnimationContext> mCurrentAnimation;
    Contexts mRunningAnimations;
    bool mUpdatingAnimations = false;
    Contexts mCommitQueue;
    Contexts mCancelQueue;

    EventObserver mEventObserver;
    unsigned int mKeyboardSubscription = 0xffff;
    unsigned int mResizeSubscription = 0;
    StageCallbacks mStageCallbacks;
    float mTime = 0;
    std::unique_ptr<KeyboardOverlay> mKeyboardOverlay;
    core::SmartPtr<geometry::MeshDataAllocator> mGeometryAllocator;

    // What is under way: operations inside one another, what they keep, and the components that are being removed.
    std::atomic<int> mActivities{0};
    const std::thread::id mFrameThread = std::this_thread::get_id();
    std::vector<core::SmartPtr<const core::IRefCount>> mKept;
    const Removal *mRemovals = nullptr;
    std::atomic<bool> mShutdownRequested{false};
    bool mEnding = false;
};

} // namespace nurel::ui
