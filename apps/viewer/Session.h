#pragma once

#include "EventTrace.h"
#include "Host.h"
#include "Options.h"
#include "Screen.h"
#include "ScriptDialogs.h"

#include "nengine/Engine.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace viewer {

/// One run of the viewer: the engine, the host that it draws to, the screen that is shown, and the frames. Everything
/// that it cannot read or write raises a `core::Exception`.
class Session {
public:
    explicit Session(const Options &options);
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    static constexpr double FRAME_SECONDS = 1.0 / 60;

    /// One frame: the clock, input, update, and in a window the drawing.
    void runFrame();

    /// Frames until the window closes, or as many as the options say.
    void run();

    /// A picture of what is shown: rows from the top, four bytes a pixel.
    struct Picture {
        unsigned int width = 0;
        unsigned int height = 0;
        std::vector<std::uint8_t> rgba;
    };
    Picture capture();

    void savePicture(const std::string &path);
    void saveDump(const std::string &path);

    /// The window's size in screen pixels.
    void resize(unsigned int width, unsigned int height);
    void setScale(float scale);

    double getTime() const;

    ScriptDialogs &getDialogs() { return mDialogs; }

private:
    void updateToolkit();
    void reloadChanged();
    bool isFinished(int frame) const;
    void draw();

    const Options &mOptions;
    std::unique_ptr<Host> mHost;
    const bool mIsScripted; ///< the clock moves by the frame, and a frame waits for its images
    std::unique_ptr<nurel::Engine> mEngine;
    struct Toolkit {
        ~Toolkit();
    } mToolkit; ///< ends the manager ahead of the engine, also when the screen cannot be loaded
    std::unique_ptr<Screen> mScreen;
    ScriptDialogs mDialogs;
    std::chrono::steady_clock::time_point mLastReload;
    std::unique_ptr<EventTrace> mTrace; ///< ends first: what the end of the others sends is no part of the run
};

} // namespace viewer
