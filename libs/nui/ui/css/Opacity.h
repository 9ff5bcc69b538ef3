#pragma once

#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `opacity: NUMBER`, not kept to 0 to 1.
class Opacity : public Property {
public:
    static constexpr const char *CSSNAME = "opacity";

    Opacity();

    Opacity &operator=(const Opacity &other) {
        Property::operator=(other);
        return *this;
    }

    /// 1 at first.
    float getOpacity() const { return mOpacity; }
    void setOpacity(float opacity) { mOpacity = opacity; }

    Property *clone() const override;
    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

protected:
    explicit Opacity(Name name);

private:
    float mOpacity = 1.0F;
};

} // namespace nurel::ui::css
