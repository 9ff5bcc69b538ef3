#include "Palette.h"

#include "foundation/core/Exception.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace drawing {

namespace {

constexpr PaletteEntry PALETTE[] = {
    // grounds, from the lowest up
    {"page", 0xf3f5f8, 0x12151a},
    {"card", 0xffffff, 0x1b2027},
    {"well", 0xe9edf2, 0x14181e},
    {"field", 0xffffff, 0x14181e},
    {"raised", 0xffffff, 0x262c35},
    {"raisedHover", 0xf0f4fa, 0x2f3742},
    {"raisedPressed", 0xdfe6f0, 0x1f242c},
    {"raisedOff", 0xeff1f4, 0x20252c},
    // lines: the first only parts things, the second is the edge of a control
    {"line", 0xd7dce4, 0x343c48},
    {"edge", 0x7b8594, 0x728093},
    {"edgeHover", 0x59636f, 0x9aa7b8},
    {"edgeOff", 0xd0d5dd, 0x3a424e},
    // text
    {"ink", 0x1a1f29, 0xe9edf3},
    {"subtle", 0x56606f, 0xa3aebd},
    {"faint", 0x9aa2ae, 0x6a7482},
    // the one colour that asks for attention, and what stands on it
    {"accent", 0x2358d9, 0x376bee},
    {"accentHover", 0x1b49bb, 0x2f62e0},
    {"accentPressed", 0x153a97, 0x2753c4},
    {"onAccent", 0xffffff, 0xffffff},
    {"accentInk", 0x1d4fc7, 0x8db1ff},
    {"accentSoft", 0xdfe9fd, 0x22345c},
    {"accentSoftHover", 0xd0dffb, 0x2a4070},
    {"caret", 0x1d4fc7, 0x8db1ff},
    {"bar", 0x8fb3f9, 0x2b50b0},
    {"ring", 0x2358d9, 0x8db1ff},
    // what is good, what may hurt
    {"danger", 0xc0272f, 0xcf353d},
    {"dangerHover", 0xa41f27, 0xbb2c34},
    {"dangerPressed", 0x85171e, 0xa0242b},
    {"dangerInk", 0xb3232b, 0xff9a94},
    {"goodInk", 0x17713f, 0x6fd39a},
    {"warnInk", 0x855400, 0xf2bd5c},
};

double linearize(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double getLuminance(const Color &color) {
    return 0.2126 * linearize(color.red) + 0.7152 * linearize(color.green) + 0.0722 * linearize(color.blue);
}

} // namespace

Color makeColor(std::uint32_t rgb, double alpha) {
    return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0, alpha};
}

std::span<const PaletteEntry> getPalette() {
    return PALETTE;
}

Color getColor(Theme theme, std::string_view name, double alpha) {
    const auto *const entry =
        std::find_if(std::begin(PALETTE), std::end(PALETTE), [name](const PaletteEntry &e) { return name == e.name; });
    if (entry == std::end(PALETTE))
        throw core::IllegalArgumentException("the palette has no '%s'", std::string(name).c_str());
    return makeColor(theme == Theme::LIGHT ? entry->light : entry->dark, alpha);
}

double getContrast(const Color &a, const Color &b) {
    const double first = getLuminance(a);
    const double second = getLuminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace drawing
