#pragma once

#include "nui/ui/Component.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `-n-anchor: ANCHOR`, such as "top-left".
class NAnchor : public Property {
public:
    static constexpr const char *CSSNAME = "-n-anchor";

    NAnchor();

    NAnchor &operator=(const NAnchor &other) {
        Property::operator=(other);
        return *this;
    }

    /// Top-left at first.
    Component::Anchor getAnchor() const { return mAnchor; }
    void setAnchor(Component::Anchor anchor) { mAnchor = anchor; }

    Property *clone() const override;

    /// The word of the anchor, whatever the index; null where the anchor is none of the nine.
    const char *_getValueString(int index) const override;
    bool _setValue(const Property *other, int index) override;

    /// A bad word makes the anchor top-left.
    bool _setValue(const char *text, int &index) override;

    /// The anchor alone: the value state of the target stays.
    void _clone(Property *copy) const override;

private:
    Component::Anchor mAnchor = Component::ANCHOR_TOP_LEFT;
};

} // namespace nurel::ui::css
