#pragma once

#include "nui/ui/css/Property.h"
#include "nui/ui/css/Size.h"

#include <string>

namespace nurel::ui::css {

/// `font: SIZE FAMILY`. Pixels are the height of the text; a percentage is the scale of the font's own size.
class Font : public Property {
public:
    static constexpr const char *CSSNAME = "font";
    static constexpr const char *CSSNAME_SIZE = "font-size";
    static constexpr int CSSNAME_SIZE_IDX = 0;
    static constexpr const char *CSSNAME_FAMILY = "font-family";
    static constexpr int CSSNAME_FAMILY_IDX = 1;

    Font();

    Font &operator=(const Font &other) {
        Property::operator=(other);
        return *this;
    }

    const std::string &getFamily() const { return mFamily; }
    void setFamily(const std::string &family) { mFamily = family; }
    bool hasFamily() const { return !mFamily.empty(); }

    /// 100 percent at first.
    const Size &getSize() const { return mSize; }
    void setSize(const Size &size) { mSize = size; }

    Property *clone() const override;
    const char *_getValueString(int index) const override;
    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    std::string mFamily;
    Size mSize{Size::PERCENT, 1.0F};
};

} // namespace nurel::ui::css
