#pragma once

#include <cstdint>

namespace nurel::font {

/// What the text system did since it was started. Counters only go up.
struct ShapingStatistics {
    std::uint64_t shapedParagraphs = 0; ///< paragraphs that were really shaped
    std::uint64_t cacheHits = 0;        ///< paragraphs that had been shaped before
    std::uint64_t brokenParagraphs = 0; ///< paragraphs whose line breaks were looked for
    std::uint64_t rasterizedGlyphs = 0;
    std::uint64_t openedFallbackFaces = 0;
};

} // namespace nurel::font
