#pragma once

#include "nengine/font/Font.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `text-align: WORD`, "left", "center" or "right": where the lines of a text stand across its box.
class TextAlign : public Property {
public:
    static constexpr const char *CSSNAME = "text-align";

    TextAlign();

    TextAlign &operator=(const TextAlign &other) {
        Property::operator=(other);
        return *this;
    }

    /// Left at first.
    font::Font::HorizontalAlignment getAlign() const { return mAlign; }
    void setAlign(font::Font::HorizontalAlignment align) { mAlign = align; }

    Property *clone() const override;

    /// The word, whatever the index.
    const char *_getValueString(int index) const override;
    bool _setValue(const Property *other, int index) override;

    /// The index moves on past a bad word, which leaves the value.
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    font::Font::HorizontalAlignment mAlign = font::Font::HA_LEFT;
};

} // namespace nurel::ui::css
