#pragma once

#include "Host.h"
#include "ScriptDialogs.h"

#include "nengine/Engine.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace viewer {

struct Options;

/// One run of a program that shows screens and may play a script: the engine, the host that it draws to, and the
/// frames. What is on the stage is its subclass' affair. Everything that it cannot read or write raises a
/// `core::Exception`.
class Run {
public:
    /// Of the options it takes those that are about the host, the font, the scale and whether there is a script.
    explicit Run(const Options &options);
    virtual ~Run();
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    static constexpr double FRAME_SECONDS = 1.0 / 60;

    /// One frame: the clock, input, update, and in a window the drawing.
    void runFrame();

    /// A picture of what is shown: rows from the top, four bytes a pixel.
    struct Picture {
        unsigned int width = 0;
        unsigned int height = 0;
        std::vector<std::uint8_t> rgba;
    };
    Picture capture();

    void savePicture(const std::string &path);
    void saveDump(const std::string &path);

    bool isWindow() const { return mHost->isWindow(); }

    /// The window's size in screen pixels.
    void resize(unsigned int width, unsigned int height);
    void setScale(float scale);

    double getTime() const;

    ScriptDialogs &getDialogs() { return mDialogs; }

protected:
    /// Takes what the window's user did, its size too. False when the window was closed.
    bool pollWindow();

    /// Input and update without a frame.
    void updateToolkit();

private:
    virtual void beginFrame() {}
    virtual void endFrame() {}
    void draw();

    std::unique_ptr<Host> mHost;
    const bool mIsScripted; ///< the clock moves by the frame, and a frame waits for its images
    std::unique_ptr<nurel::Engine> mEngine;
    struct Toolkit {
        ~Toolkit();
    } mToolkit; ///< ends the manager ahead of the engine, also when the subclass cannot be built
    ScriptDialogs mDialogs;
};

} // namespace viewer
