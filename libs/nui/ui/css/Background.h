#pragma once

#include "nmain/math/Vector4.h"
#include "nui/ui/css/Property.h"

#include <cstdint>
#include <string>

namespace nurel::ui::css {

/// `background: COLOR HORIZONTAL VERTICAL REPEAT IMAGE`, words by their place. The image is the name of a texture as it
/// stands; there is no `url(`. A view shows no box while the background is none: at first, and after a first word that
/// is no colour ("none" among them).
class Background : public Property {
public:
    static constexpr const char *CSSNAME = "background";
    static constexpr const char *CSSNAME_COLOR = "background-color";
    static constexpr int CSSNAME_COLOR_IDX = 0;
    static constexpr const char *CSSNAME_POSITION = "background-position";
    static constexpr int CSSNAME_POSITION_IDX = 1;
    static constexpr const char *CSSNAME_REPEAT = "background-repeat";
    static constexpr int CSSNAME_REPEAT_IDX = 3;
    static constexpr const char *CSSNAME_IMAGE = "background-image";
    static constexpr int CSSNAME_IMAGE_IDX = 4;

    enum HPosition : std::uint8_t { HPOSITION_LEFT = 0, HPOSITION_CENTER = 1, HPOSITION_RIGHT = 2 };
    enum VPosition : std::uint8_t { VPOSITION_TOP = 0, VPOSITION_CENTER = 1, VPOSITION_BOTTOM = 2 };

    struct Position {
        HPosition horizontal = HPOSITION_CENTER;
        VPosition vertical = VPOSITION_CENTER;

        bool operator==(const Position &) const = default;
    };

    /// Bits.
    enum Repeat : unsigned int { REPEAT_NONE = 0, REPEAT_X = 1, REPEAT_Y = 2, REPEAT_BOTH = 3 };

    Background();

    Background &operator=(const Background &other) {
        Property::operator=(other);
        return *this;
    }

    /// Red, green, blue, alpha from 0 to 1, all -1 at first. A red of -1 leaves the target's red, green and blue alone,
    /// an alpha of -1 its alpha.
    const math::Vector4 &getColor() const { return mColor; }
    void setColor(const math::Vector4 &color) { mColor = color; }

    const Position &getPosition() const { return mPosition; }
    void setPosition(const Position &position) { mPosition = position; }
    HPosition getHPosition() const { return mPosition.horizontal; }
    VPosition getVPosition() const { return mPosition.vertical; }

    /// Repeat bits; none at first.
    unsigned int getRepeat() const { return mRepeat; }
    void setRepeat(unsigned int repeat) { mRepeat = repeat; }

    /// The name of a texture; while the background is none, a text that begins with the byte 1.
    const std::string &getImage() const { return mImage; }
    void setImage(const std::string &image) { mImage = image; }

    bool isNone() const { return !mImage.empty() && mImage.front() == NONE_MARKER; }

    /// "repeat", "repeat-x" or "repeat-y"; any other word repeats nothing.
    static unsigned int parseRepeat(const char *text);

    /// The word for repeat bits: "repeat" for exactly both, otherwise by bit, "no-repeat" for none.
    static const char *unparse(unsigned int repeat);

    /// Leaves out the repeat bits: the copy's are none.
    Property *clone() const override;

    /// The words of 1 the horizontal and 2 the vertical position and of 3 the repetition; 4 the image.
    const char *_getValueString(int index) const override;
    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;

    /// Leaves out the repeat bits: the target keeps its own.
    void _clone(Property *copy) const override;

private:
    static constexpr char NONE_MARKER = '\1';

    bool parseColor(const char *text);

    math::Vector4 mColor{-1, -1, -1, -1};
    std::string mImage{NONE_MARKER};
    unsigned int mRepeat = REPEAT_NONE;
    Position mPosition;
};

} // namespace nurel::ui::css
