#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/Component.h"
#include "nui/ui/Layout.h"

namespace nurel::ui::layouts {

/// Places components one after another along the flow direction and begins a new row (or column) where the next one
/// would pass the size limit. A component under it gets the anchor top-left for good, and a relative position of 0.
///
/// The setters mark nothing dirty: a change takes effect at the owner's next layout pass. Template keys: "direction"
/// ("horizontal", "vertical"), "limit-policy" ("relative", "absolute"), "limit", "position", "spacing", "anchor".
class FlowLayout : public Layout {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    enum FlowDirection { HORIZONTAL = 0, VERTICAL = 1 };
    enum SizeLimitPolicy { RELATIVE = 0, ABSOLUTE = 1 };

    using Layout::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    FlowDirection getFlowDirection() const { return mDirection; }
    void setFlowDirection(FlowDirection direction) { mDirection = direction; }

    /// Whether the size limit is a factor of the owner's container size along the flow, or a number of pixels.
    SizeLimitPolicy getSizeLimitPolicy() const { return mLimitPolicy; }
    void setSizeLimitPolicy(SizeLimitPolicy policy) { mLimitPolicy = policy; }

    float getSizeLimit() const { return mLimit; }
    void setSizeLimit(float limit) { mLimit = limit; }

    /// Where the first component's position is, from the owner's top left, in pixels.
    const math::Vector2 &getStartPosition() const { return mStart; }
    void setStartPosition(const math::Vector2 &position) { mStart = position; }

    /// Pixels between components along x and y.
    const math::Vector2 &getSpacing() const { return mSpacing; }
    void setSpacing(const math::Vector2 &spacing) { mSpacing = spacing; }

    /// How the components stand across the flow: a horizontal flow reads the vertical bits, a vertical one the
    /// horizontal.
    Component::Anchor getAnchor() const { return mAnchor; }
    void setAnchor(Component::Anchor anchor) { mAnchor = anchor; }

protected:
    using Components = std::list<Component *>;

    void _layout(const Components &components) const override;
    void _setParameters(const json::JSObject *parameters) override;

    void layoutHorizontal(const Components &components) const;
    void layoutVertical(const Components &components) const;

    /// Moves the components from first up to last, which is not one of them, within the row's top and bottom.
    void alignRow(const Components &components, Components::const_iterator first, Components::const_iterator last,
                  float top, float bottom) const;
    void alignColumn(const Components &components, Components::const_iterator first, Components::const_iterator last,
                     float left, float right) const;

private:
    FlowDirection mDirection = HORIZONTAL;
    SizeLimitPolicy mLimitPolicy = RELATIVE;
    float mLimit = 1;
    math::Vector2 mStart = math::Vector2(0, 0);
    math::Vector2 mSpacing = math::Vector2(0, 0);
    Component::Anchor mAnchor = Component::ANCHOR_TOP_LEFT;
};

} // namespace nurel::ui::layouts
