#pragma once

#include <cstdint>

namespace nurel::geometry {

/// A number that was not given out before: two things with the same one are the same thing, unchanged. Any thread.
std::uint64_t nextRevision();

/// Counts what may change how meshes look without any mesh being told: changes of properties and of the sets of
/// properties that frames have, of texture stages and of textures. Whoever drew a mesh at this count need not look at
/// any of them. Any thread.
std::uint64_t getLookChangeCount();
void noteLookChange();

} // namespace nurel::geometry
