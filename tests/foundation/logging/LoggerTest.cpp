#include "foundation/logging/Logger.h"
#include "foundation/core/Exception.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using logging::Level;
using logging::Logger;

namespace {

/// Notices when two threads are inside at once.
class ExclusiveSink : public logging::Sink {
public:
    void write(Level, const char *message) override {
        clashed |= inside.exchange(true);
        characters += std::string(message).size();
        inside = false;
    }

    std::atomic<bool> inside{false};
    bool clashed = false;
    std::size_t characters = 0;
};

} // namespace

TEST(Logger, FormatsForEveryLevel) {
    test::LogCapture log;
    Logger::mROOT_LOGGER.debug("d %d", 1);
    Logger::mROOT_LOGGER.info("i %s", "two");
    Logger::mROOT_LOGGER.warn("w %.1f", 3.0);
    Logger::mROOT_LOGGER.error("e %c", '4');
    EXPECT_EQ(log.takeOne(Level::DEBUG), "d 1");
    EXPECT_EQ(log.takeOne(Level::INFO), "i two");
    EXPECT_EQ(log.takeOne(Level::WARN), "w 3.0");
    EXPECT_EQ(log.takeOne(Level::ERROR), "e 4");
}

TEST(Logger, AddsTheTextOfAnException) {
    test::LogCapture log;
    const core::IllegalStateException exception("no %s", "owner");
    Logger::mROOT_LOGGER.error("Cannot lay out", exception);
    Logger::mROOT_LOGGER.error("Cannot parse %s(%s), child %u", exception, "form", "Panel", 3u);
    Logger::mROOT_LOGGER.error("Cannot", std::runtime_error("100%s"));
    EXPECT_EQ(log.take(Level::ERROR),
              (std::vector<std::string>{"Cannot lay out: no owner", "Cannot parse form(Panel), child 3: no owner",
                                        "Cannot: 100%s"}));
}

TEST(Logger, TakesATextAsAnArgumentAndNotAsAnException) {
    test::LogCapture log;
    Logger::mROOT_LOGGER.error("%s %d", "text", 5);
    EXPECT_EQ(log.takeOne(Level::ERROR), "text 5");
}

TEST(Logger, DoesNotCutALongMessage) {
    test::LogCapture log;
    for (const std::size_t size : {254u, 255u, 256u, 257u, 100'000u}) {
        const std::string text(size, 'x');
        Logger::mROOT_LOGGER.info("%s", text.c_str());
        EXPECT_EQ(log.takeOne(Level::INFO), text);
    }
}

TEST(Logger, LeavesOutWhatIsBelowItsLevel) {
    test::LogCapture log;
    const Level levels[] = {Level::DEBUG, Level::INFO, Level::WARN, Level::ERROR};
    for (const Level level : levels) {
        Logger::mROOT_LOGGER.setLevel(level);
        EXPECT_EQ(Logger::mROOT_LOGGER.getLevel(), level);
        Logger::mROOT_LOGGER.debug("d");
        Logger::mROOT_LOGGER.info("i");
        Logger::mROOT_LOGGER.warn("w");
        Logger::mROOT_LOGGER.error("e");
        Logger::mROOT_LOGGER.error("x", core::Exception("y"));
        EXPECT_EQ(log.take(Level::DEBUG).size(), level <= Level::DEBUG ? 1u : 0u);
        EXPECT_EQ(log.take(Level::INFO).size(), level <= Level::INFO ? 1u : 0u);
        EXPECT_EQ(log.take(Level::WARN).size(), level <= Level::WARN ? 1u : 0u);
        EXPECT_EQ(log.take(Level::ERROR).size(), 2u);
    }
}

TEST(Logger, StartsAtInfo) {
    const Logger logger;
    EXPECT_EQ(logger.getLevel(), Level::INFO);
}

TEST(Logger, WritesToTheStandardErrorStreamByDefault) {
    Logger logger;
    testing::internal::CaptureStderr();
    logger.debug("hidden");
    logger.info("shown %d", 1);
    logger.warn("careful");
    logger.error("broken", core::Exception("by %s", "hand"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "INFO: shown 1\nWARN: careful\nERROR: broken: by hand\n");
}

TEST(Logger, GivesTheOldSinkBack) {
    Logger logger;
    ExclusiveSink sink;
    EXPECT_EQ(logger.setSink(&sink), nullptr);
    logger.info("four");
    EXPECT_EQ(logger.setSink(nullptr), &sink);
    EXPECT_EQ(sink.characters, 4u);
}

TEST(Logger, NamesItsLevels) {
    EXPECT_STREQ(logging::getLevelName(Level::DEBUG), "DEBUG");
    EXPECT_STREQ(logging::getLevelName(Level::INFO), "INFO");
    EXPECT_STREQ(logging::getLevelName(Level::WARN), "WARN");
    EXPECT_STREQ(logging::getLevelName(Level::ERROR), "ERROR");
}

TEST(Logger, HandsOneMessageAtATimeToTheSink) {
    Logger logger;
    ExclusiveSink sink;
    logger.setSink(&sink);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 500; ++round)
                logger.warn("%04d", round);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_FALSE(sink.clashed);
    EXPECT_EQ(sink.characters, 4u * 500u * 4u);
}
