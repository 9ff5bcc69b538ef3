#include "foundation/logging/Logger.h"

#include "foundation/core/Lock.h"
#include "foundation/text/Format.h"

#include <cstdio>
#include <string>

namespace logging {

constinit Logger Logger::mROOT_LOGGER;

const char *getLevelName(Level level) {
    switch (level) {
    case Level::DEBUG:
        return "DEBUG";
    case Level::INFO:
        return "INFO";
    case Level::WARN:
        return "WARN";
    case Level::ERROR:
        return "ERROR";
    }
    return "";
}

void Logger::debug(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(Level::DEBUG, format, arguments);
    va_end(arguments);
}

void Logger::info(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(Level::INFO, format, arguments);
    va_end(arguments);
}

void Logger::warn(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(Level::WARN, format, arguments);
    va_end(arguments);
}

void Logger::error(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(Level::ERROR, format, arguments);
    va_end(arguments);
}

Sink *Logger::setSink(Sink *sink) {
    const core::Lock lock(mSection);
    Sink *old = mSink;
    mSink = sink;
    return old;
}

void Logger::writeFormatted(Level level, const char *format, va_list arguments) {
    if (isWritten(level))
        write(level, text::formatV(format, arguments).c_str());
}

void Logger::writeWithReason(Level level, const char *reason, const char *format, ...) {
    if (!isWritten(level))
        return;
    va_list arguments;
    va_start(arguments, format);
    std::string message = text::formatV(format, arguments);
    va_end(arguments);
    message.append(": ").append(reason);
    write(level, message.c_str());
}

void Logger::write(Level level, const char *message) {
    const core::Lock lock(mSection);
    if (mSink)
        mSink->write(level, message);
    else
        std::fprintf(stderr, "%s: %s\n", getLevelName(level), message);
}

} // namespace logging
