#pragma once

#include "Gallery.h"
#include "Host.h"

#include "nengine/Engine.h"

#include <memory>
#include <string>

namespace gallery {

struct Settings;

/// One run of the gallery: a window or a picture in memory, the engine, and the frames.
class Stage {
public:
    explicit Stage(const Settings &settings);
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    bool isWindow() const { return mHost->isWindow(); }

    /// Frames until the window closes.
    void run();

    /// Draws every page, light and dark, into files PAGE-LIGHT.png of the folder, which is made if need be, and names
    /// each on the standard output.
    void drawPages(const std::string &folder);

private:
    void runFrame();
    void draw();
    void savePicture(const std::string &path);

    std::unique_ptr<viewer::Host> mHost;
    std::unique_ptr<nurel::Engine> mEngine;
    struct Toolkit {
        ~Toolkit();
    } mToolkit; ///< ends the manager ahead of the engine, also when the gallery cannot be built
    std::unique_ptr<Gallery> mGallery;
};

} // namespace gallery
