#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace drawing {

enum class Theme { LIGHT, DARK };

/// Straight (not premultiplied) sRGB, each from 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
};

Color makeColor(std::uint32_t rgb, double alpha = 1);

/// One colour of the two looks, as 0xrrggbb. The starter sheets define a macro of the same name for those that they
/// use as well.
struct PaletteEntry {
    const char *name;
    std::uint32_t light;
    std::uint32_t dark;
};

std::span<const PaletteEntry> getPalette();

/// The colour of a name; raises `core::IllegalArgumentException` when there is none.
Color getColor(Theme theme, std::string_view name, double alpha = 1);

/// How far two opaque colours stand apart: from 1 (the same) to 21 (black on white), as the usual guidelines for
/// legible text reckon it. Text wants 4.5, edges of controls and focus rings want 3.
double getContrast(const Color &a, const Color &b);

} // namespace drawing
