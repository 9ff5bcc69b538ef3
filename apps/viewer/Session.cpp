#include "Session.h"

namespace viewer {

namespace {

/// How many frames a picture is given when nothing else says: enough for queues and images to settle.
constexpr int OFFSCREEN_FRAMES = 4;
constexpr std::chrono::milliseconds TIME_BETWEEN_RELOADS(100);

} // namespace

Session::Session(const Options &options) : Run(options), mOptions(options) {
    mScreen = std::make_unique<Screen>(options.screen, options.styles, options.locale);
    // The screen is on the stage before the first frame is counted.
    updateToolkit();
    if (!options.trace.empty())
        mTrace = std::make_unique<EventTrace>(options.trace);
}

void Session::endFrame() {
    if (mTrace)
        mTrace->frameEnded();
}

bool Session::isFinished(int frame) const {
    if (mOptions.frames >= 0)
        return frame >= mOptions.frames;
    return !isWindow() && frame >= OFFSCREEN_FRAMES;
}

void Session::reloadChanged() {
    const auto now = std::chrono::steady_clock::now();
    if (now - mLastReload < TIME_BETWEEN_RELOADS)
        return;
    mLastReload = now;
    const nurel::ui::Widget *before = mScreen->getWidget();
    mScreen->reloadChanged(now);
    if (mScreen->getWidget() != before)
        getDialogs().bindAgain();
}

void Session::run() {
    for (int frame = 0; !isFinished(frame); ++frame) {
        if (!pollWindow())
            return;
        if (isWindow())
            reloadChanged();
        runFrame();
    }
}

} // namespace viewer
