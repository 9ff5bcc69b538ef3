#include "nengine/font/detail/TextSystem.h"

#include "nengine/font/Font.h"

namespace nurel::font::detail {

constinit std::uint32_t TextSystem::sShapeGeneration = 1;
constinit std::uint32_t TextSystem::sGlyphGeneration = 1;

TextSystem::TextSystem(texture::Atlas *atlas)
    : mLibrary(new FontLibrary), mFallback(*mLibrary, mStatistics), mShaper(mFallback, mBoundaries) {
    ++sShapeGeneration;
    ++sGlyphGeneration;
    if (atlas)
        mGlyphs = std::make_unique<GlyphCache>(*atlas, mStatistics);
}

TextSystem::~TextSystem() {
    ++sShapeGeneration;
    ++sGlyphGeneration;
}

::core::SmartPtr<ShapedParagraph> TextSystem::shape(const Font &font, std::string_view utf8) {
    if (ShapedParagraph *known = mShapes.find(font.getId(), utf8)) {
        ++mStatistics.cacheHits;
        return known;
    }
    ::core::SmartPtr<ShapedParagraph> shaped(mShaper.shape(font, utf8));
    ++mStatistics.shapedParagraphs;
    mShapes.put(shaped.get());
    return shaped;
}

const std::vector<std::uint8_t> &TextSystem::getBoundaries(const ShapedParagraph &paragraph) {
    if (!paragraph.hasBoundaries())
        ++mStatistics.brokenParagraphs;
    return paragraph.getBoundaries(mBoundaries);
}

void TextSystem::fontsChanged() {
    ++sShapeGeneration;
    mShapes.clear();
}

void TextSystem::rebuildGlyphs() {
    ++sGlyphGeneration;
    if (mGlyphs)
        mGlyphs->drop();
}

} // namespace nurel::font::detail
