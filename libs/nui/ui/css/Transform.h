#pragma once

#include "nmain/math/Matrix4.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `transform: scale(X,Y)` or `scale(X,Y,Z)`, without blanks. The five letters ahead of the bracket are not looked at;
/// `scale3d(` is thus not understood.
class Transform : public Property {
public:
    static constexpr const char *CSSNAME = "transform";

    Transform();

    Transform &operator=(const Transform &other) {
        Property::operator=(other);
        return *this;
    }

    /// The identity at first.
    const math::Matrix4 &getMatrix() const { return mMatrix; }
    void setMatrix(const math::Matrix4 &matrix) { mMatrix = matrix; }

    Property *clone() const override;
    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    math::Matrix4 mMatrix;
};

} // namespace nurel::ui::css
