#pragma once

#include <string>
#include <vector>

namespace viewer {

/// What the command line asks for.
struct Options {
    std::string screen;
    std::string title;               ///< of the window; "": the screen and the program
    std::vector<std::string> styles; ///< sheets, as given, in order
    std::string png;
    std::string script;
    std::string trace;
    std::string dump;
    std::string font;
    std::string locale;
    unsigned int width = 1280;
    unsigned int height = 720;
    float scale = 1; ///< UI pixels per screen pixel
    int frames = -1; ///< how many to run; -1: until the window closes, or a few off-screen
    bool headless = false;
    bool stay = false; ///< go on after the script as without one
    bool verbose = false;
    bool help = false;

    /// No window is asked for.
    bool isOffscreen() const { return headless || !png.empty(); }
};

/// Reads the command line; raises `core::IllegalArgumentException` with one sentence when it makes no sense.
Options parseOptions(int argc, const char *const *argv);

/// The text of --help.
extern const char *const USAGE;

} // namespace viewer
