#pragma once

#include "EventTrace.h"
#include "Options.h"
#include "Run.h"
#include "Screen.h"

#include <chrono>
#include <memory>

namespace viewer {

/// One run of the viewer: the screen that is shown, reloaded as its files change, and the trace.
class Session : public Run {
public:
    explicit Session(const Options &options);

    /// Frames until the window closes, or as many as the options say.
    void run();

private:
    void endFrame() override;
    void reloadChanged();
    bool isFinished(int frame) const;

    const Options &mOptions;
    std::unique_ptr<Screen> mScreen;
    std::chrono::steady_clock::time_point mLastReload;
    std::unique_ptr<EventTrace> mTrace; ///< ends first: what the end of the others sends is no part of the run
};

} // namespace viewer
