#include "support/LogCapture.h"

#include <gtest/gtest.h>

namespace test {

LogCapture::LogCapture()
    : mPrevious(logging::Logger::mROOT_LOGGER.setSink(this)), mPreviousLevel(logging::Logger::mROOT_LOGGER.getLevel()) {
    logging::Logger::mROOT_LOGGER.setLevel(logging::Level::DEBUG);
}

LogCapture::~LogCapture() {
    logging::Logger::mROOT_LOGGER.setSink(mPrevious);
    logging::Logger::mROOT_LOGGER.setLevel(mPreviousLevel);
    for (const Line &line : mLines) {
        if (line.level == logging::Level::WARN || line.level == logging::Level::ERROR)
            ADD_FAILURE() << "unexpected in the log: " << line.text;
    }
}

void LogCapture::write(logging::Level level, const char *message) {
    mLines.push_back({level, message});
}

std::vector<std::string> LogCapture::take(logging::Level level) {
    std::vector<std::string> taken;
    std::vector<Line> kept;
    for (Line &line : mLines) {
        if (line.level == level)
            taken.push_back(std::move(line.text));
        else
            kept.push_back(std::move(line));
    }
    mLines = std::move(kept);
    return taken;
}

std::string LogCapture::takeOne(logging::Level level) {
    for (auto it = mLines.begin(); it != mLines.end(); ++it) {
        if (it->level == level) {
            std::string text = std::move(it->text);
            mLines.erase(it);
            return text;
        }
    }
    return {};
}

} // namespace test
