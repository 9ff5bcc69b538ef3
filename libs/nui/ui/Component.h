#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/math/Matrix3.h"
#include "nmain/math/Vector2.h"
#include "nmain/math/Vector3.h"
#include "nmain/math/Vector4.h"
#include "nui/core/BackPointer.h"
#include "nui/core/CKHashMap.h"
#include "nui/core/CallbackSubscriptor.h"
#include "nui/ui/BoxModel.h"
#include "nui/ui/Fwd.h"
#include "nui/ui/UIEventHandler.h"

#include <string>

namespace nurel::scene {
class Mesh;
class Property;
} // namespace nurel::scene

namespace nurel::scene::properties {
class MaterialProperty;
class TextureProperty;
} // namespace nurel::scene::properties

namespace nurel::texture {
class Texture;
} // namespace nurel::texture

namespace nurel::ui {

/// The signal of one event class: a callback gets the handler and the event. What it returns says whether it is
/// finished (true unsubscribes it); it does not say whether the event is consumed.
template <class Event>
using EventCallbacks = core::CallbackSubscriptor<Event, 1, bool, UIEventHandler *, const Event &>;

/// Base of every element of the user interface: where it is and how large, how it stands (enabled, visible, focused,
/// …), what it is called for style sheets, what draws it, and how it takes part in the event chain.
///
/// **Geometry is declared.** Setters only record what is asked for and raise dirty flags; update(), which the
/// `UIManager` calls each frame for trees that have a flag, turns declarations into computed values. A computed value
/// is valid only after that. Coordinates are UI pixels, x to the right and y down; positions are centres. z grows away
/// from the viewer.
///
/// **Animation.** While `UIManager::beginAnimation()` is open, setPosition(), setSize(), setPositionData(),
/// setRotation(), setScale(), setTransform(), setOpacity() and setVisible() change nothing but record their value as
/// the target of an animation.
///
/// **Ownership.** Components are counted and held by `core::SmartPtr`; a container holds its children. A new component
/// and a clone have the count 0 and belong to whoever made them. The parent and the handler are only pointed at. A copy
/// (not a clone) shares the view, the mesh and the user data of its source and stands in no tree.
///
/// All of it belongs to the thread that drives the `UIManager`; debug builds log once when another one meddles.
///
/// **Events.** Subscribe by `button->ClickCallbacks::subscribeCallback(...)`, and likewise for the other event classes.
/// A component admits the events of its mask only; those that it does not admit, and all while it is disabled or
/// invisible, pass on to the next handler, as a rule the parent.
class Component : public UIEventHandler,
                  public EventCallbacks<ClickEvent>,
                  public EventCallbacks<MouseEvent>,
                  public EventCallbacks<HoverEvent>,
                  public EventCallbacks<FocusEvent>,
                  public EventCallbacks<DragEvent>,
                  public EventCallbacks<KeyEvent>,
                  public EventCallbacks<TextEvent>,
                  public EventCallbacks<WheelEvent> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    using ClickCallbacks = EventCallbacks<ClickEvent>;
    using MouseCallbacks = EventCallbacks<MouseEvent>;
    using HoverCallbacks = EventCallbacks<HoverEvent>;
    using FocusCallbacks = EventCallbacks<FocusEvent>;
    using DragCallbacks = EventCallbacks<DragEvent>;
    using KeyCallbacks = EventCallbacks<KeyEvent>;
    using TextCallbacks = EventCallbacks<TextEvent>;
    using WheelCallbacks = EventCallbacks<WheelEvent>;

    /// Lets the subscription template be named through a component.
    template <class Tag, int N, class R, class... A>
    using CallbackSubscriptor = core::CallbackSubscriptor<Tag, N, R, A...>;

    /// (100, 64): the size of a component that is not told another.
    static const math::Vector2 DEFAULT_SIZE;

    /// One vertical and one horizontal choice: which edges of the parent the position counts from. An axis without a
    /// bit gets neither margin nor anchor offset.
    using Anchor = unsigned int;
    enum AnchorBit : Anchor {
        ANCHOR_TOP = 0x01,
        ANCHOR_MIDDLE = 0x02,
        ANCHOR_BOTTOM = 0x04,
        ANCHOR_LEFT = 0x08,
        ANCHOR_CENTER_HORIZONTAL = 0x10,
        ANCHOR_RIGHT = 0x20,
        ANCHOR_VERTICAL_MASK = 0x07,
        ANCHOR_HORIZONTAL_MASK = 0x38,
        ANCHOR_TOP_LEFT = 0x09,
        ANCHOR_TOP_CENTER = 0x11,
        ANCHOR_TOP_RIGHT = 0x21,
        ANCHOR_CENTER_LEFT = 0x0a,
        ANCHOR_CENTER = 0x12,
        ANCHOR_CENTER_RIGHT = 0x22,
        ANCHOR_BOTTOM_LEFT = 0x0c,
        ANCHOR_BOTTOM_CENTER = 0x14,
        ANCHOR_BOTTOM_RIGHT = 0x24
    };

    /// Which sides of the size come from the content.
    enum AutoSize : unsigned int { AUTO_SIZE_NONE = 0, AUTO_SIZE_WIDTH = 0x01, AUTO_SIZE_HEIGHT = 0x02 };

    /// What has to be done before the component can be drawn. A new component has all of them.
    enum DirtyFlag : unsigned int {
        /// Declared geometry changed. Raised by every geometry setter, by setParent() and by scrolling the parent;
        /// cleared by updatePosition().
        DIRTY_POSITION = 0x01,
        /// What lies inside changed: children, layout, text, or a relative size under a new parent size. Raised by
        /// adding and removing children, by updatePosition(), and on the parent by every geometry setter; cleared by
        /// updateContent().
        DIRTY_CONTENT = 0x02,
        /// Some descendant has DIRTY_CONTENT. Raised on the way up; cleared by update().
        DIRTY_CHILD_CONTENT = 0x04,
        /// Classes changed: the view recomputes its style. Raised by the class operations; cleared by updateView().
        DIRTY_STYLE = 0x08,
        /// The view has to be refreshed. Raised with every other flag but DIRTY_CONTENT alone, by changes of state and
        /// by events that change it; cleared by updateView().
        DIRTY_VIEW = 0x10,
        /// Some descendant needs an update, so the tree's widget is not skipped. Raised up the chain; cleared by
        /// update().
        DIRTY_CHILD_VIEW = 0x20,
        /// A child's z-index changed: the container has to sort. Raised by setZIndex() of a child; cleared by
        /// updateContent() and `Container::applyZIndex()`.
        DIRTY_ZORDER = 0x40,
        DIRTY_ALL = 0x7f
    };

    /// Where setDirty__() marks.
    enum DirtyDirection : unsigned int {
        DIRTY_UP = 0x01,   ///< the parent, which climbs on
        DIRTY_SELF = 0x02, ///< this component
        DIRTY_DOWN = 0x04  ///< every child, which descends
    };

    enum StateFlag : unsigned int {
        STATE_HOVER = 0x01,    ///< the cursor is over it; also cleared by setEnabled() and by a release outside
        STATE_ACTIVE = 0x02,   ///< pressed; cleared by release and by the cursor leaving
        STATE_RELEASED = 0x04, ///< from a release to the next press
        STATE_CHECKED = 0x10,  ///< set by checkable controls and selected items
        STATE_FOCUSED = 0x20,  ///< set by `UIManager::setFocus()`
        STATE_DISABLED = 0x40  ///< set by setEnabled(false) and by a disabled parent
    };

    /// The declared position: `absolute` pixels plus `relative` times the parent's size.
    struct ComponentPosition {
        float depth = 0; ///< z in the parent
        math::Vector2 absolute = math::Vector2(0, 0);
        math::Vector2 relative = math::Vector2(0, 0);
    };

    /// The declared size. In `minimum` and `maximum`, 0 in an axis is no limit.
    struct ComponentSize {
        math::Vector2 absolute = math::Vector2(100, 64);
        math::Vector2 minimum = math::Vector2(0, 0);
        math::Vector2 maximum = math::Vector2(0, 0);
        math::Vector2 relative = math::Vector2(0, 0); ///< factor of the parent's size that is added
        unsigned int autoSize = 0;                    ///< AutoSize bits
        math::Vector2 autoSizeOffset = math::Vector2(0, 0);
        float fixedAspectRatio = 0; ///< width / height; 0 is none
    };

    /// Data that an application hangs on a component. Clones share it.
    class UserData : public core::IRefCount {};

    Component(const Component &other);
    Component &operator=(const Component &other);
    ~Component() override;

    // --- Tree ---

    /// Called by `Container` alone. Raises `core::IllegalStateException` "A parent is already set on component %s" when
    /// there is one already and the new one is not null, and when the parent lies in this component's own subtree.
    void setParent(Container *parent);
    Container *getParent() const { return mParent; }
    bool hasParent() const { return mParent != nullptr; }
    bool isContainer() const { return mIsContainer; }

    /// 0 for a root, else the parent's plus 1.
    unsigned int getHierrarchyDepth() const { return mHierarchyDepth; }

    /// Whether the other one is this component or one of its ancestors.
    bool isDescendantOf(const Component *component) const;

    /// Orders the component among its siblings, and is drawn and hit in that order. Without a parent nothing is marked.
    void setZIndex(int zIndex);
    int getZIndex() const { return mZIndex; }

    // --- Declared geometry. A setter that compares does nothing when told what it knows; one that does not,
    // --- invalidates all the same.

    /// Sets x and y, with no relative part. z is ignored: the depth has a setter of its own.
    void setPosition(const math::Vector3 &position);
    /// Compares. `relative` is the factor of the parent's size that is added.
    void setPosition(const math::Vector2 &absolute, const math::Vector2 &relative);
    const ComponentPosition &getComponentPosition() const { return mDeclaredPosition; }

    /// Never animated; does not compare.
    void setDepth(float depth);
    float getDepth() const { return mDeclaredPosition.depth; }

    /// Sets the size in pixels, with no relative part.
    void setSize(const math::Vector2 &size);
    /// Compares. Zero and negative sizes are taken as they are.
    void setSize(const math::Vector2 &absolute, const math::Vector2 &relative);
    void setWidth(float absolute, float relative = 0);
    void setHeight(float absolute, float relative = 0);
    const ComponentSize &getComponentSize() const { return mDeclaredSize; }

    /// Position, size and anchor in one; does not compare. While an animation is open the anchor is dropped.
    void setPositionData(const math::Vector2 &absolutePosition, const math::Vector2 &relativePosition,
                         const math::Vector2 &absoluteSize, const math::Vector2 &relativeSize, Anchor anchor);

    /// Limits in pixels, 0 for none; they do not compare. Where both apply the minimum wins.
    void setMinimumSize(const math::Vector2 &size);
    void setMinimumWidth(float width);
    void setMinimumHeight(float height);
    void setMaximumSize(const math::Vector2 &size);
    void setMaximumWidth(float width);
    void setMaximumHeight(float height);
    const math::Vector2 &getMinimumSize() const { return mDeclaredSize.minimum; }
    float getMinimumWidth() const { return mDeclaredSize.minimum.x; }
    float getMinimumHeight() const { return mDeclaredSize.minimum.y; }
    const math::Vector2 &getMaximumSize() const { return mDeclaredSize.maximum; }
    float getMaximumWidth() const { return mDeclaredSize.maximum.x; }
    float getMaximumHeight() const { return mDeclaredSize.maximum.y; }

    /// Width / height; the box shrinks in one axis to fit. 0 is none. Does not compare.
    void setFixedAspectRatio(float ratio);
    float getFixedAspectRatio() const { return mDeclaredSize.fixedAspectRatio; }

    /// Takes the sides of `flags` from the content, plus the offset. Compares.
    virtual void setAutoSize(unsigned int flags, const math::Vector2 &offset = math::Vector2(0, 0));
    unsigned int getAutoSizeFlags() const { return mDeclaredSize.autoSize; }
    const math::Vector2 &getAutoSizeOffset() const { return mDeclaredSize.autoSizeOffset; }

    /// Compares.
    void setAnchor(Anchor anchor);
    Anchor getAnchor() const { return mAnchor; }

    /// Each is (top, right, bottom, left) in pixels and compares.
    void setMargin(const math::Vector4 &margin);
    void setBorder(const math::Vector4 &border);
    void setPadding(const math::Vector4 &padding);
    void setBox(const BoxModel &box);
    const math::Vector4 &getMargin() const { return mBox.margin; }
    const math::Vector4 &getBorder() const { return mBox.border; }
    const math::Vector4 &getPadding() const { return mBox.padding; }
    const BoxModel &getBox() const { return mBox; }

    /// Do not compare. Whoever looks at the back of a component neither sees nor hits it.
    void setRotation(const math::Matrix3 &rotation);
    const math::Matrix3 &getRotation() const { return mRotation; }
    math::Matrix3 &getRotation() { return mRotation; }
    void setScale(const math::Vector2 &scale);
    const math::Vector2 &getScale() const { return mScale; }

    /// Takes scale, rotation and absolute x and y from the matrix; its z and the relative position are left out.
    void setTransform(const math::Matrix4 &transform);

    // --- Computed geometry, valid after update()

    /// The centre relative to the parent's centre, before the parent's scrolling and the pixel correction.
    const math::Vector3 &getPosition() const { return mPosition; }
    /// The centre in viewport coordinates.
    const math::Vector3 &getWorldPosition() const { return mWorldPosition; }
    /// The position plus the parent's scroll offset, with the pixel correction: what is drawn.
    const math::Vector3 &getParentRelativePosition() const { return mParentRelativePosition; }
    /// Without the component's own scale.
    const math::Vector2 &getNaturalSize() const { return mNaturalSize; }
    /// The natural size times the scale.
    const math::Vector2 &getSize() const { return mSize; }
    const math::Vector2 &getParentSize() const { return mParentSize; }
    /// The bounds in viewport coordinates. They may lie half a pixel beside the drawn rectangle.
    const math::Vector2 &getMinBound() const { return mMinBound; }
    const math::Vector2 &getMaxBound() const { return mMaxBound; }
    const math::Vector2 &getWorldScale() const { return mWorldScale; }

    /// The size that relative parts refer to: the parent's inside, or the viewport.
    math::Vector2 calculateParentSize() const;

    /// The declared position with its relative part and the margins, in whole pixels, before the anchor.
    math::Vector3 calculatePosition() const;

    /// Whether the point, in viewport coordinates, lies within the bounds, edges included.
    bool hasCursor(const math::Vector2 &point) const;

    /// Asks the parents to scroll this component into view.
    virtual void ensureVisibility();

    // --- Dirty flags

    /// The flags of the mask that are set.
    unsigned int isDirty(unsigned int mask) const { return mDirty & mask; }

    /// Sets the flags on this component without telling anyone.
    void forceDirty(unsigned int mask) { mDirty |= mask; }

    /// The component's part of a frame: position, content and view, up to three times over while the position is found
    /// dirty again. A component whose own visible flag is false only refreshes its view.
    void update();

    // --- State

    unsigned int getState() const { return mState; }
    /// Whether any flag of the mask is set.
    bool hasState(unsigned int mask) const { return (mState & mask) != 0; }

    /// A call with the value in force does nothing at all.
    virtual void setEnabled(bool enabled);
    /// Enabled and visible, by its own flags and the parents': an invisible component is never enabled.
    bool isEnabled() const { return mEnabled && mParentEnabled && mVisible && mParentVisible; }

    /// A call with the value in force does nothing at all.
    virtual void setVisible(bool visible);
    bool isVisible() const { return mVisible && mParentVisible; }
    bool isSelfVisible() const { return mVisible; }

    /// Asks the `UIManager` for the focus; a component without a tab stop does not get it.
    virtual void setFocus();
    bool hasFocus() const;

    /// The place in the order of tabbing; below 0 the component takes no focus.
    void setTabStop(int tabStop);
    int getTabStop() const { return mTabStop; }

    // --- Style sheets

    /// The type selector. Null counts as empty.
    void setElement(const char *element);
    const std::string &getElement() const { return mElement; }

    /// The class operations mark the style dirty even if the set stays as it is. Null is no class.
    virtual void addClass(const char *name);
    virtual void removeClass(const char *name);
    virtual void removeClasses();
    /// Only adds the class.
    void setClass(const char *name);
    /// Empties the set and adds the keys of the other one, in their order.
    void setClasses(const core::CKHashMapValue<bool> &classes);
    bool hasClass(const char *name) const { return mClasses.containsKey(name); }
    /// Only the presence of a key counts.
    const core::CKHashMapValue<bool> &getClasses() const { return mClasses; }

    // --- View

    ComponentView *getView() const { return mView.get(); }
    bool hasView() const { return mView != nullptr; }

    /// Drops the view without taking it out of the scene.
    virtual void clearView();

    /// Gives the component a view of the skin, unless it has one of it already; always when `force` is set. Null is
    /// ignored.
    void setSkin(Skin *skin, bool force = false);

    /// The skin of the nearest view upwards; or that which the widget names; or the default one. May be null when the
    /// default one is.
    Skin *getSkin() const;

    // --- The component's own drawable, made on first use

    scene::Mesh *getMesh();

    /// Whether getMesh() has made the mesh already.
    bool hasMesh() const { return mMesh.get() != nullptr; }

    math::Vector3 getMeshColor();
    void setMeshColor(const math::Vector3 &color);
    void setMeshProperty(scene::Property *property);
    /// Null for a stage that is empty or does not exist.
    texture::Texture *getMeshTexture(unsigned int stage);
    void setMeshTexture(texture::Texture *texture, unsigned int stage);
    /// The texture of that name from the pool; an unknown one clears the stage.
    void setMeshTexture(const char *name, unsigned int stage);

    /// From 0 to 1. With `recursive`, what lies inside is drawn with its own opacity times the value.
    void setOpacity(float value, bool recursive);
    float getOpacity() const { return mOpacity; }

    // --- Events and the rest

    /// What the ray meets: this component, or for a container one of its descendants; null when it misses, and for a
    /// component that is not enabled or has no view. `point` gets where, relative to the centre of what was hit. The
    /// left and top edges belong to the component, the right and bottom edges do not.
    virtual Component *hitTest(const Ray &ray, math::Vector3 &point);

    /// The attached handler, or else the parent.
    UIEventHandler *nextHandler() override;
    UIEventHandler *handleEvent(const UIEvent &event) override;

    ComponentHandler *getHandler() const { return mHandler; }

    /// Takes a reference.
    void setUserData(UserData *data);
    UserData *getUserData() const { return mUserData.get(); }
    void clearUserData();
    bool hasUserData() const { return mUserData != nullptr; }

    /// A clone has the declared and computed geometry, state, classes and mesh of its source; no view, no parent, no
    /// handler, no subscriptions. A target of another class raises `core::IllegalArgumentException`.
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    Component(const char *name, const char *element);

    /// The declared size that a class starts with. For constructors: nothing is marked, and no open animation records
    /// it.
    void initializeSize(const math::Vector2 &absolute, const math::Vector2 &relative) {
        mDeclaredSize.absolute = absolute;
        mDeclaredSize.relative = relative;
    }

    /// Whether a class starts visible; for constructors, as above.
    void initializeVisible(bool visible) { mVisible = visible; }

    /// The view of this component under the skin: the one that it has, or else a new one, which is stored by setView().
    /// Every concrete class asks the skin for its own kind.
    virtual ComponentView *visit(Skin *skin) = 0;

    /// The size that the content asks for, where the declared size is `current`. The base returns the argument.
    virtual math::Vector2 getAutoSize(const math::Vector2 &current);

    virtual void updateView();
    virtual void updatePosition();
    virtual void updateContent();

    /// Replaces the view; null drops it. Under a parent with a view the new one is put into the parent's.
    virtual void setView(ComponentView *view);

    /// What a parent pushes down.
    virtual void setParentEnabled(bool enabled);
    virtual void setParentVisible(bool visible);

    virtual void onMouseUp(const CursorPosition &cursor);
    virtual void onMouseWheel(const CursorPosition &cursor, int delta);
    virtual void onMouseDown(const CursorPosition &cursor);
    virtual void onMouseEnter(const CursorPosition &cursor);
    virtual void onMouseMove(const CursorPosition &cursor);
    virtual void onMouseLeave();
    virtual void onDragBegin(const CursorPosition &cursor);
    virtual void onDragMove(const math::Vector2 &delta, const CursorPosition &cursor);
    virtual void onDragEnd();
    virtual void onDragCancel();

    /// Writes an opacity to what draws the component; the base to its mesh, which is made for it.
    virtual void applyOpacity(float value, bool recursive);

    /// Makes the component's own drawable, which belongs to the caller.
    virtual scene::Mesh *createMesh();

    UIEventHandler *processEvent(const TextEvent &event) override;
    UIEventHandler *processEvent(const KeyEvent &event) override;
    UIEventHandler *processEvent(const DragEvent &event) override;
    UIEventHandler *processEvent(const WheelEvent &event) override;
    UIEventHandler *processEvent(const ClickEvent &event) override;
    UIEventHandler *processEvent(const MouseEvent &event) override;
    UIEventHandler *processEvent(const HoverEvent &event) override;
    UIEventHandler *processEvent(const FocusEvent &event) override;

    /// Raises flags here and what follows from them around: with DIRTY_POSITION the view and all descendants, and the
    /// parents' content; with DIRTY_VIEW the way up to the widget. `setDirty(DIRTY_POSITION)` is the geometry
    /// invalidation.
    void setDirty(unsigned int bits);

    /// Raises exactly the flags in the directions given. A climb ends at the first ancestor that has them all.
    void setDirty__(unsigned int bits, unsigned int direction);

    /// Clears flags. A position that stays dirty keeps the view dirty.
    void setClean(unsigned int bits);

    /// The flags of the mask that are clear.
    unsigned int isClean(unsigned int mask) const { return ~mDirty & mask; }

    /// Change the state word; the view is marked if it changed.
    void enableState(unsigned int mask);
    void disableState(unsigned int mask);
    void setState(unsigned int state);

    /// Called by `ComponentHandler` alone.
    void setHandler(ComponentHandler *handler) { mHandler = handler; }

private:
    friend class ComponentHandler; // setHandler
    friend class ComponentView;    // setDirty, visit, updatePosition, updateContent
    friend class Container;        // what it passes on to its children
    friend class Skin;             // visit
    friend class UIManager;        // setDirty__, visit, setView, focus state

    math::Vector2 calculateSize(math::Vector2 &natural);
    void applyAnchor(math::Vector3 &position) const;
    void correctPixels();
    void updateHDepth();
    void applyVisibility(bool visible);
    void leaveManager() noexcept;
    void dropView();
    void checkThread() const;

    template <class Event>
    UIEventHandler *dispatch(const Event &event);
    UIEventHandler *dispatchByType(const UIEvent &event);

    void cloneMesh(Component &target) const;
    scene::properties::MaterialProperty &obtainMaterial();
    scene::properties::TextureProperty &obtainTexture();

    core::BackPointer<ComponentHandler> mHandler;
    int mTabStop = -1;
    Anchor mAnchor = ANCHOR_CENTER;
    core::BackPointer<Container> mParent;

    ComponentPosition mDeclaredPosition;
    ComponentSize mDeclaredSize;

    math::Vector3 mPosition = math::Vector3(0, 0, 0);
    math::Vector3 mWorldPosition = math::Vector3(0, 0, 0);
    math::Vector3 mParentRelativePosition = math::Vector3(0, 0, 0);
    math::Vector2 mNaturalSize = math::Vector2(0, 0);
    math::Vector2 mSize = math::Vector2(0, 0);
    math::Vector2 mMinBound = math::Vector2(0, 0);
    math::Vector2 mMaxBound = math::Vector2(0, 0);
    math::Vector2 mParentSize = math::Vector2(0, 0);
    math::Vector2 mWorldScale = math::Vector2(1, 1);
    float mPixelCorrection = 0;

    math::Vector2 mScale = math::Vector2(1, 1);
    math::Matrix3 mRotation;
    float mOpacity = 1;
    unsigned int mHierarchyDepth = 0;
    int mZIndex = 0;
    unsigned int mDirty = DIRTY_ALL;
    unsigned int mState = 0;
    bool mEnabled = true;
    bool mParentEnabled = true;
    bool mIsContainer = false;
    bool mVisible = true;
    bool mParentVisible = true;

    core::SmartPtr<ComponentView> mView;
    core::SmartPtr<UserData> mUserData;
    core::SmartPtr<scene::Mesh> mMesh;
    BoxModel mBox;
    std::string mElement;
    core::CKHashMapValue<bool> mClasses;
};

} // namespace nurel::ui
