#pragma once

#include <cstdarg>
#include <exception>
#include <string>

namespace core {

/// Base of every exception of the project: a text made by printf's rules.
///
/// A derived class has the same constructor, passes its arguments to setMessage(), and overrides clone() and raise() so
/// that a copy keeps its class.
class Exception : public std::exception {
public:
    explicit Exception(const char *format, ...) __attribute__((format(printf, 2, 3)));

    const char *what() const noexcept override { return mMessage.c_str(); }
    const char *getMessage() const noexcept { return mMessage.c_str(); }

    /// A copy of the same class; the caller deletes it.
    virtual Exception *clone() const;

    /// Throws a copy of the same class: how a kept exception is thrown again.
    [[noreturn]] virtual void raise() const;

protected:
    Exception() = default;
    void setMessage(const char *format, va_list arguments) __attribute__((format(printf, 2, 0)));

private:
    std::string mMessage;
};

/// An operation was called with a value that it cannot take.
class IllegalArgumentException : public Exception {
public:
    explicit IllegalArgumentException(const char *format, ...) __attribute__((format(printf, 2, 3)));
    IllegalArgumentException *clone() const override;
    [[noreturn]] void raise() const override;
};

/// An operation was called while its object, or something that it needs, is not ready for it.
class IllegalStateException : public Exception {
public:
    explicit IllegalStateException(const char *format, ...) __attribute__((format(printf, 2, 3)));
    IllegalStateException *clone() const override;
    [[noreturn]] void raise() const override;
};

/// Something could not be opened, read or written.
class IOException : public Exception {
public:
    explicit IOException(const char *format, ...) __attribute__((format(printf, 2, 3)));
    IOException *clone() const override;
    [[noreturn]] void raise() const override;
};

} // namespace core
