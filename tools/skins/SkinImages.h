#pragma once

#include "Picture.h"

#include <string>
#include <vector>

namespace drawing {

/// An image of the starter looks or of the gallery.
struct SkinImage {
    std::string path; ///< from the folder `assets`
    Picture picture;
};

/// Draws them all: those of the light and the dark look, and those that both share.
std::vector<SkinImage> drawImages();

} // namespace drawing
