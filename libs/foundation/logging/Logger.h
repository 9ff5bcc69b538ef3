#pragma once

#include "foundation/core/CriticalSection.h"

#include <atomic>
#include <cstdarg>
#include <exception>

namespace logging {

enum class Level { DEBUG, INFO, WARN, ERROR };

/// "DEBUG", "INFO", "WARN" or "ERROR".
const char *getLevelName(Level level);

/// Where a logger's messages go.
class Sink {
public:
    virtual ~Sink() = default;

    /// Takes one message, whole and without a line end, which is only lent for the call. Called by any thread that
    /// logs, but by one at a time.
    virtual void write(Level level, const char *message) = 0;
};

/// Formats messages by printf's rules and hands them to a sink. Safe from any thread, and from the first moment of load
/// time. A message below the logger's level is not even formatted; the level is INFO at first.
class Logger {
public:
    /// The one logger that everything writes to.
    static Logger mROOT_LOGGER;

    constexpr Logger() noexcept = default;
    Logger(const Logger &) = delete;
    Logger &operator=(const Logger &) = delete;

    void debug(const char *format, ...) __attribute__((format(printf, 2, 3)));
    void info(const char *format, ...) __attribute__((format(printf, 2, 3)));
    void warn(const char *format, ...) __attribute__((format(printf, 2, 3)));
    void error(const char *format, ...) __attribute__((format(printf, 2, 3)));

    /// Writes "<formatted text>: <the exception's text>".
    template <class... Arguments>
    void error(const char *format, const std::exception &exception, Arguments... arguments) {
        writeWithReason(Level::ERROR, exception.what(), format, arguments...);
    }

    /// Sets where messages go and returns what was there. The logger does not own the sink; null stands for the
    /// standard error stream, with the level's name before each message. When the call returns, the old sink is no
    /// longer in use.
    Sink *setSink(Sink *sink);

    void setLevel(Level level) { mLevel.store(level, std::memory_order_relaxed); }
    Level getLevel() const { return mLevel.load(std::memory_order_relaxed); }

private:
    bool isWritten(Level level) const { return level >= getLevel(); }
    void writeFormatted(Level level, const char *format, va_list arguments) __attribute__((format(printf, 3, 0)));
    void writeWithReason(Level level, const char *reason, const char *format, ...);
    void write(Level level, const char *message);

    core::CriticalSection mSection;
    Sink *mSink = nullptr;
    std::atomic<Level> mLevel{Level::INFO};
};

} // namespace logging
