#pragma once

#include "foundation/core/Exception.h"

namespace nurel::i18n {

/// A text is no catalogue. The text begins with "<stream>:<line>:<column>: ", both counted from 1.
class CatalogueException : public ::core::Exception {
public:
    explicit CatalogueException(const char *format, ...) __attribute__((format(printf, 2, 3)));
    CatalogueException *clone() const override;
    [[noreturn]] void raise() const override;
};

} // namespace nurel::i18n
