#include "nmain/parser/LexerException.h"

namespace nurel::parser {

LexerException::LexerException(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

LexerException *LexerException::clone() const {
    return new LexerException(*this);
}

void LexerException::raise() const {
    throw *this;
}

} // namespace nurel::parser
