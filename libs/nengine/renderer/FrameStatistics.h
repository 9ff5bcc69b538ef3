#pragma once

#include <cstdint>

namespace nurel::renderer {

/// What a render pass did since it was made, for tests and benchmarks. The last three tell of the last frame only.
struct FrameStatistics {
    std::uint64_t framesSubmitted = 0;     ///< draw lists given to the backend
    std::uint64_t listsSubmittedAgain = 0; ///< of these, those that were the same as before
    std::uint64_t listsRebuilt = 0;        ///< of these, those put together anew
    std::uint64_t meshesPatched = 0;       ///< meshes whose vertices were replaced in a list that stayed
    std::uint64_t meshesBuilt = 0;         ///< meshes that built their geometry in their own space
    std::uint64_t verticesRebuilt = 0;     ///< vertices computed by meshes, from their geometry
    std::uint64_t verticesWritten = 0;     ///< vertices written into draw lists
    std::uint64_t verifyFailures = 0;      ///< lists that differed from ones made from nothing

    std::uint32_t commands = 0;
    std::uint32_t vertices = 0;
    std::uint32_t textureSwitches = 0; ///< neighbouring commands with different textures
};

} // namespace nurel::renderer
