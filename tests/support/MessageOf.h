#pragma once

#include "foundation/core/Exception.h"

#include <string>

namespace test {

/// The text of the exception that the action raises; "nothing was raised" without one.
template <class Action>
std::string messageOf(Action &&action) {
    try {
        action();
    } catch (const core::Exception &e) {
        return e.getMessage();
    }
    return "nothing was raised";
}

} // namespace test
