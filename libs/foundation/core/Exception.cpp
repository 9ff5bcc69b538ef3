#include "foundation/core/Exception.h"

#include "foundation/text/Format.h"

namespace core {

Exception::Exception(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

Exception *Exception::clone() const {
    return new Exception(*this);
}

void Exception::raise() const {
    throw *this;
}

void Exception::setMessage(const char *format, va_list arguments) {
    mMessage = text::formatV(format, arguments);
}

IllegalArgumentException::IllegalArgumentException(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

IllegalArgumentException *IllegalArgumentException::clone() const {
    return new IllegalArgumentException(*this);
}

void IllegalArgumentException::raise() const {
    throw *this;
}

IllegalStateException::IllegalStateException(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

IllegalStateException *IllegalStateException::clone() const {
    return new IllegalStateException(*this);
}

void IllegalStateException::raise() const {
    throw *this;
}

IOException::IOException(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

IOException *IOException::clone() const {
    return new IOException(*this);
}

void IOException::raise() const {
    throw *this;
}

} // namespace core
