#pragma once

#include "nengine/font/ShapingStatistics.h"
#include "nengine/font/detail/Face.h"
#include "nengine/font/detail/FontFallback.h"
#include "nengine/font/detail/GlyphCache.h"
#include "nengine/font/detail/ShapeCache.h"
#include "nengine/font/detail/Shaper.h"
#include "nengine/font/detail/TextBoundaries.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace nurel::font::detail {

/// What texts share behind the FontManager: shaping with its cache, and the glyphs in the atlas.
class TextSystem {
public:
    /// The atlas may be null: nothing is drawn then.
    explicit TextSystem(texture::Atlas *atlas);
    ~TextSystem();
    TextSystem(const TextSystem &) = delete;
    TextSystem &operator=(const TextSystem &) = delete;

    /// A paragraph without line ends, from the cache or shaped now.
    ::core::SmartPtr<ShapedParagraph> shape(const Font &font, std::string_view utf8);

    TextBoundaries &getBoundaries() { return mBoundaries; }
    const std::vector<std::uint8_t> &getBoundaries(const ShapedParagraph &paragraph);

    FontLibrary &getLibrary() { return *mLibrary; }
    FontFallback &getFallback() { return mFallback; }
    ShapingStatistics &getStatistics() { return mStatistics; }

    /// Null without an atlas.
    GlyphCache *getGlyphs() { return mGlyphs.get(); }

    /// What was shaped before may look otherwise now: there is another font to fall back to.
    void fontsChanged();

    /// Drops all glyph bitmaps.
    void rebuildGlyphs();

    /// These change whenever what was shaped, or rasterised, has to be done again, and with every text system there is.
    /// Texts compare them, many of them each frame.
    static std::uint32_t getShapeGeneration() { return sShapeGeneration; }
    static std::uint32_t getGlyphGeneration() { return sGlyphGeneration; }

private:
    static std::uint32_t sShapeGeneration;
    static std::uint32_t sGlyphGeneration;

    ShapingStatistics mStatistics;
    const ::core::SmartPtr<FontLibrary> mLibrary;
    FontFallback mFallback;
    TextBoundaries mBoundaries;
    Shaper mShaper;
    ShapeCache mShapes;
    std::unique_ptr<GlyphCache> mGlyphs;
};

} // namespace nurel::font::detail
