#pragma once

#include "nmain/math/Vector4.h"
#include "nui/ui/Component.h"
#include "nui/ui/css/Size.h"

namespace nurel::ui::css {

/// The value parsers that style sheets and templates share. They never report: a parser that fails returns false, and
/// what it wrote before it failed stays.
class Common {
public:
    /// Reads "12px", "12em", "50%", "auto" or a bare number. An em is a pixel; a bare number counts pixels; a word that
    /// is no size reads as 0 pixels. Always true. A null text reads as the empty one.
    static bool parseSize(const char *text, Size &size);

    /// Reads "#rgb", "#rgba", "#rrggbb", "#rrggbbaa", "rgb(r,g,b)", "rgba(r,g,b,a)" (all four on the 0 to 255 scale) or
    /// a colour name into (red, green, blue, alpha) from 0 to 1. An alpha of -1 says that the text gave none. "none"
    /// and null leave the colour alone and are false; another unknown word is false too, with the colour set to white.
    static bool parseColor(const char *text, math::Vector4 &color);

    /// Reads an anchor word such as "top-left". Any other word stores top-left and is false.
    static bool parseAnchor(const char *text, Component::Anchor &anchor);

    /// The word of an anchor; null for a number that is none of the nine.
    static const char *unparseAnchor(Component::Anchor anchor);
};

} // namespace nurel::ui::css
