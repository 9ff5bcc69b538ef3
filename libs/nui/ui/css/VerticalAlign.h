#pragma once

#include "nengine/font/Font.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `vertical-align: WORD`, "top", "center" or "bottom": where a text stands in its box.
class VerticalAlign : public Property {
public:
    static constexpr const char *CSSNAME = "vertical-align";

    VerticalAlign();

    VerticalAlign &operator=(const VerticalAlign &other) {
        Property::operator=(other);
        return *this;
    }

    /// Top at first.
    font::Font::VerticalAlignment getAlign() const { return mAlign; }
    void setAlign(font::Font::VerticalAlignment align) { mAlign = align; }

    Property *clone() const override;

    /// The word, whatever the index.
    const char *_getValueString(int index) const override;
    bool _setValue(const Property *other, int index) override;

    /// The index moves on past a bad word, which leaves the value.
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    font::Font::VerticalAlignment mAlign = font::Font::VA_TOP;
};

} // namespace nurel::ui::css
