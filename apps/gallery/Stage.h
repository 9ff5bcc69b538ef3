#pragma once

#include "Gallery.h"
#include "Run.h"

#include <memory>
#include <string>

namespace gallery {

struct Settings;

/// One run of the gallery, in a window or in memory.
class Stage : public viewer::Run {
public:
    explicit Stage(const Settings &settings);

    /// Frames until the window closes.
    void run();

    /// Draws every page, light and dark, into files PAGE-LIGHT.png of the folder, which is made if need be, and names
    /// each on the standard output.
    void drawPages(const std::string &folder);

private:
    void beginFrame() override;

    std::unique_ptr<Gallery> mGallery;
};

} // namespace gallery
