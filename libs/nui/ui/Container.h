#pragma once

#include "nui/ui/Component.h"

#include <limits>
#include <vector>

namespace nurel::ui {

/// A component with children: it keeps them sorted by z-index, passes updates, visibility and opacity down, lets a
/// layout place them, measures what they cover, scrolls them, and makes scroll bars when the content does not fit.
///
/// A container holds a reference on each child; a child belongs to one container at a time. The scroll bars that it
/// makes are children too: they stand behind all others and are not counted by getChildCount().
class Container : public Component {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// Which axes scroll.
    enum ScrollMask : unsigned int { SCROLL_NONE = 0, SCROLL_HORIZONTAL = 0x01, SCROLL_VERTICAL = 0x02 };

    /// The z-index of scroll bars, above everything.
    static constexpr int SCROLL_BAR_Z_INDEX = 0x7fffffff;

    /// One axis' scroll bar.
    struct ScrollInfo {
        bool scrollable = false;  ///< the bar is in use
        float scale = 0;          ///< container size / content extent, or 0
        float length = 0;         ///< of the bar, in whole pixels
        float position = 0;       ///< of the bar along its axis
        Component *bar = nullptr; ///< one of the children; null until it is first needed
    };

    Container(const Container &other);
    Container &operator=(const Container &other);
    ~Container() override;

    // --- Children

    /// Puts the child behind all siblings whose z-index is not above its own, and, with `useLayout`, under the layout.
    /// Its own child and null are ignored. A child of another container raises `core::IllegalStateException` "Component
    /// already has a parent"; so does a container that this one lies in, with a text of its own.
    void addChild(Component *child, bool useLayout = true) { _addChild(child, useLayout); }

    /// A stranger is ignored, but the layout is told. The child keeps its view.
    void removeChild(Component *child);

    /// An index past the end is ignored.
    void removeChildAt(unsigned int index);

    /// Removes all children, scroll bars included, and scrolls back to the start.
    void clearChildren();

    /// Without the scroll bars.
    unsigned int getChildCount() const;

    /// In drawing order. The index has to be below the count of children, scroll bars included.
    Component *getChildAt(unsigned int index) const;

    /// -1 for a stranger. Scroll bars have an index as well.
    int getChildIndex(const Component *child) const;
    bool hasChild(const Component *child) const;

    /// Sorts children and their views by z-index; those with equal ones keep their order.
    void applyZIndex();

    /// Bounds of the children's z-indexes. They are not exact after clearChildren().
    int getZIndexMin() const { return mZIndexMin; }
    int getZIndexMax() const { return mZIndexMax; }

    // --- Layout

    /// Takes a reference; null takes the layout away. Children that are there already do not come under the layout by
    /// this: set it first, or call its clearIgnores().
    void setLayout(Layout *layout);
    Layout *getLayout() const { return mLayout.get(); }
    bool hasLayout() const { return mLayout != nullptr; }

    // --- Scrolling. Offsets are in pixels and are added to the children's positions.

    /// A mask other than 0 makes the container take drag events, which scroll it; the default mask alone does not.
    void setScrollMask(unsigned int mask);
    unsigned int getScrollMask() const { return mScrollMask; }

    /// The axes of the mask whose content reaches beyond the right or lower edge.
    unsigned int getScrollEnabled() const;

    void setScrollOffset(const math::Vector2 &offset);
    const math::Vector2 &getScrollOffset() const { return mScrollOffset; }

    /// Scroll to a distance from the start of the content.
    void scrollHorizontalAbsolute(float distance);
    void scrollVerticalAbsolute(float distance);
    void scrollAbsolute(const math::Vector2 &distance);

    /// Scroll to a fraction from 0 to 1.
    void scrollHorizontalPercent(float fraction);
    void scrollVerticalPercent(float fraction);
    void scrollPercent(const math::Vector2 &fraction);

    math::Vector2 getScrollAbsolute() const;
    math::Vector2 getScrollPercent() const;

    const ScrollInfo &getScrollInfoH() const { return mScrollInfoH; }
    const ScrollInfo &getScrollInfoV() const { return mScrollInfoV; }

    /// The room between content and edge on the left and top, and on the right and bottom; negative where content
    /// sticks out.
    const math::Vector2 &getScrollMin() const { return mScrollMin; }
    const math::Vector2 &getScrollMax() const { return mScrollMax; }

    /// What the visible children cover, margins included, around the origin, in whole pixels.
    const math::Vector2 &getContentExtentMin() const { return mContentExtentMin; }
    const math::Vector2 &getContentExtentMax() const { return mContentExtentMax; }
    math::Vector2 getContentExtents() const;
    bool isContentOutside() const;
    bool isContentInside() const;

    /// The natural size without border and padding: what children take as their parent's size.
    const math::Vector2 &getContainerSize() const { return mContainerSize; }

    /// Whether the point, relative to the centre, lies within border and padding, edges included.
    bool isClientArea(const math::Vector2 &local) const;

    /// Whether a view cuts off what sticks out.
    void setClipChildren(bool clip);
    bool getClipChildren() const { return mClipChildren; }

    /// Asked by a child that wants to be seen, with its bounds around its own centre. The base only asks on.
    virtual void ensureChildVisibility(Component *child, const math::Vector3 &minimum, const math::Vector3 &maximum);

    /// The natural size less border and padding.
    virtual math::Vector2 calculateContainerSize();

    void setEnabled(bool enabled) override;
    void setVisible(bool visible) override;
    void clearView() override;
    Component *hitTest(const Ray &ray, math::Vector3 &point) override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    /// Takes click events besides those of a component.
    Container(const char *name, const char *element);

    void _addChild(Component *child, bool useLayout);

    /// For controls whose parts follow their state: gives one a state word; its view is marked if that changed.
    static void setChildState(Component &child, unsigned int state) { child.setState(state); }

    /// For a part that a control adds to itself: coming under a disabled parent does not mark a child, but the part
    /// looks disabled with its control all the same.
    void shareDisabled(Component &part) const { setChildState(part, part.getState() | (getState() & STATE_DISABLED)); }

    /// Lets the layout place the children, and those that it moved take their places.
    virtual void updateLayout();

    math::Vector2 getAutoSize(const math::Vector2 &current) override;
    void updatePosition() override;
    void updateContent() override;
    void setParentEnabled(bool enabled) override;
    void setParentVisible(bool visible) override;
    void onDragMove(const math::Vector2 &delta, const CursorPosition &cursor) override;
    void applyOpacity(float value, bool recursive) override;

private:
    friend class Component;     // the children, for what runs down the tree
    friend class ComponentView; // isBelowBarsOnly
    friend class Layout;        // isBelowBarsOnly

    enum Axis { HORIZONTAL, VERTICAL };
    struct AxisTraits;

    bool isBar(const Component *child) const { return child == mScrollInfoH.bar || child == mScrollInfoV.bar; }
    /// Whether no child but the scroll bars has a higher z-index. May miss that it is so, once a higher one has gone.
    bool isBelowBarsOnly(int zIndex) const { return zIndex >= mZIndexBound; }

    void insertByZIndex(Component *child);
    void detachView(Component &child);
    void detachAt(std::size_t index);
    void updateZIndexRangeAfterInsertion(int zIndex);
    void updateZIndexRangeAfterRemoval(int zIndex);
    void markChildrenChanged();
    void markScrolled();

    void measureContent();
    void measureScrollRoom();
    void updateBar(Axis axis);
    Component *createBar(Axis axis);
    bool isBarInBars() const;
    void dragAxis(const ScrollInfo &info, float delta, float minimum, float maximum, float &offset) const;

    core::SmartPtr<Layout> mLayout;
    std::vector<core::SmartPtr<Component>> mChildren; ///< ascending z-index
    unsigned int mScrollMask = SCROLL_HORIZONTAL | SCROLL_VERTICAL;
    math::Vector2 mContainerSize = math::Vector2(0, 0);
    math::Vector2 mBaseScrollOffset = math::Vector2(0, 0); ///< as asked for; in force where there is nothing to scroll
    math::Vector2 mScrollOffset = math::Vector2(0, 0);
    bool mClipChildren = true;
    bool mIsUnsorted = false; ///< a child was appended below the one before it
    ScrollInfo mScrollInfoH;
    ScrollInfo mScrollInfoV;
    math::Vector2 mScrollMin = math::Vector2(0, 0);
    math::Vector2 mScrollMax = math::Vector2(0, 0);
    math::Vector2 mContentExtentMin = math::Vector2(0, 0);
    math::Vector2 mContentExtentMax = math::Vector2(0, 0);
    int mZIndexMin = 0;
    int mZIndexMax = 0;
    int mZIndexBound = std::numeric_limits<int>::min(); ///< no child but the bars is above it
};

} // namespace nurel::ui
