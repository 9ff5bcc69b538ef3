#pragma once

#include <string>

namespace viewer {

/// The component tree of every widget as one JSON text, ending in a line feed; `time` is in seconds.
std::string dumpTree(double time);

} // namespace viewer
