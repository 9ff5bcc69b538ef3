#pragma once

#include "foundation/logging/Logger.h"

#include <string>
#include <vector>

namespace test {

/// Takes the root logger's output while it lives. Every line has to be expected: a warning or an error that is still
/// there at the end fails the test that made the capture.
class LogCapture : public logging::Sink {
public:
    LogCapture();
    ~LogCapture() override;
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    void write(logging::Level level, const char *message) override;

    /// The texts of one level in the order in which they came, taken out of the capture.
    std::vector<std::string> take(logging::Level level);

    /// Takes the oldest line of the level; an empty text when there is none.
    std::string takeOne(logging::Level level);

private:
    struct Line {
        logging::Level level;
        std::string text;
    };
    std::vector<Line> mLines;
    logging::Sink *mPrevious;
    logging::Level mPreviousLevel;
};

} // namespace test
