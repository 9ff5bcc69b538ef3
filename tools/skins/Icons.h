#pragma once

#include "Picture.h"

namespace drawing {

/// White signs on nothing, to be tinted by the background colour of what shows them: 8 columns of cells of 20 pixels.
/// Row 0: plus, minus, check, cross, left, right, up, down. Row 1: menu, search, gear, star, circle of light (sun),
/// moon, information, warning.
Picture drawIcons();

} // namespace drawing
