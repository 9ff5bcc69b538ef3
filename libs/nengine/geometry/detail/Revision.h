#pragma once

#include <cstdint>

namespace nurel::geometry {

/// A number that was not given out before: two things with the same one are the same thing, unchanged. Any thread.
std::uint64_t nextRevision();

} // namespace nurel::geometry
