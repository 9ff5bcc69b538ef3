#pragma once

#include "foundation/core/Exception.h"

namespace nurel::parser {

/// A text does not follow the grammar of its language.
class LexerException : public ::core::Exception {
public:
    explicit LexerException(const char *format, ...) __attribute__((format(printf, 2, 3)));
    LexerException *clone() const override;
    [[noreturn]] void raise() const override;
};

} // namespace nurel::parser
