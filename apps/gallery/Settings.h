#pragma once

#include <string>

namespace gallery {

/// What the command line asks for.
struct Settings {
    std::string pngDir; ///< empty: a window, if there is a display
    std::string page;   ///< name of the first page; empty: the first one
    std::string font;
    std::string assets;
    unsigned int width = 1280;
    unsigned int height = 720;
    std::string script; ///< empty: none is played
    bool headless = false;
    bool dark = false;
    bool help = false;
};

/// Reads the command line; raises `core::IllegalArgumentException` with one sentence when it makes no sense.
Settings parseSettings(int argc, const char *const *argv);

/// The text of --help.
extern const char *const USAGE;

} // namespace gallery
