#pragma once

#include "foundation/core/Exception.h"

namespace nurel::json {

/// A text is not a JSON document. The text begins with "<stream>:<line>:<column>: ", both counted from 1.
class JSONException : public ::core::Exception {
public:
    explicit JSONException(const char *format, ...) __attribute__((format(printf, 2, 3)));
    JSONException *clone() const override;
    [[noreturn]] void raise() const override;
};

} // namespace nurel::json
