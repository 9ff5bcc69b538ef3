#pragma once

#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `z-index: NUMBER`, the order among siblings.
class ZIndex : public Property {
public:
    static constexpr const char *CSSNAME = "z-index";

    ZIndex();

    ZIndex &operator=(const ZIndex &other) {
        Property::operator=(other);
        return *this;
    }

    /// 0 at first.
    int getValue() const { return mValue; }
    void setValue(int value) { mValue = value; }
    using Property::setValue;

    Property *clone() const override;
    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    int mValue = 0;
};

} // namespace nurel::ui::css
