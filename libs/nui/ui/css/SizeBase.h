#pragma once

#include "nui/ui/css/Property.h"
#include "nui/ui/css/Size.h"

namespace nurel::ui::css {

/// A length along one axis: pixels, and a fraction of the parent that is added to them. Each word writes the one or the
/// other, in whichever order: `50% 10px`. The kinds are in SizeProperties.h.
class SizeBase : public Property {
public:
    SizeBase &operator=(const SizeBase &other) {
        Property::operator=(other);
        return *this;
    }

    /// Pixels.
    float getSizeAbsolute() const { return mAbsolute; }

    /// A fraction of the parent.
    float getSizeRelative() const { return mRelative; }

    void setSize(float absolute, float relative) {
        mAbsolute = absolute;
        mRelative = relative;
    }

    /// Whether the content gives the size. Once on, no word turns it off: `width: auto` and then `width: 10px` in one
    /// block leave it on.
    bool isAuto() const { return mAuto; }

    /// Writes what a word of this size writes: one part, or for auto both parts 0 and the auto flag.
    void setSize(const Size &size);

    /// Index 0 copies both parts and leaves the auto flag; there is no other index.
    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

protected:
    explicit SizeBase(Name name);

private:
    float mAbsolute = 0;
    float mRelative = 0;
    bool mAuto = false;
};

} // namespace nurel::ui::css
