#include "nengine/font/Font.h"

#include "nengine/font/FontManager.h"
#include "nengine/font/Glyph.h"
#include "nengine/font/detail/Face.h"

#include <atomic>
#include <unordered_map>

namespace nurel::font {

constinit const ::core::Type Font::TYPE("Font", &core::NamedObject::TYPE);

namespace {

std::uint32_t nextFontId() {
    static std::atomic<std::uint32_t> last{0};
    return ++last;
}

} // namespace

struct Font::GlyphTable {
    std::unordered_map<char32_t, Glyph> glyphs;
};

Font::Font(const char *name, detail::Face *face, float size)
    : core::NamedObject(name), mFace(face), mGlyphs(std::make_unique<GlyphTable>()),
      mSize(size > 0.0f && size < GREATEST_SIZE ? size : DEFAULT_SIZE), mId(nextFontId()) {
    if (face) {
        mAscent = face->getAscent() * mSize;
        mDescent = face->getDescent() * mSize;
    }
}

Font::~Font() = default;

const Glyph *Font::getGlyph(char32_t character) const {
    const std::uint32_t index = mFace ? mFace->getGlyphIndex(character) : detail::Face::MISSING;
    if (index == detail::Face::MISSING)
        return nullptr;
    const auto [entry, isNew] = mGlyphs->glyphs.try_emplace(character);
    if (isNew)
        entry->second = {index, mFace->getAdvance(index) * mSize};
    return &entry->second;
}

texture::Texture *Font::getTexture() const {
    FontManager *manager = FontManager::getSingletonPtr();
    return manager ? manager->getGlyphTexture() : nullptr;
}

} // namespace nurel::font
