#pragma once

#include "nmain/core/NamedObject.h"

#include <cstdint>
#include <memory>

namespace nurel::texture {
class Texture;
}

namespace nurel::font {

namespace detail {
class Face;
}
struct Glyph;

/// A typeface at a size of its own, made and counted by the FontManager; its name is the one that it is found by.
///
/// Metrics are the font file's own, scaled without hinting or rounding, so that a layout is the same at every size. A
/// font may outlive its manager: metrics stay readable, but text in it is neither shaped nor drawn any more. Used on
/// the render thread.
class Font : public core::NamedObject {
public:
    /// Where the lines of a text stand in its box. The numbers are those of `TextMesh::setHorizontalAlignment`.
    enum HorizontalAlignment { HA_LEFT = 0, HA_CENTER = 1, HA_RIGHT = 2 };

    /// Where the whole text stands in its box. The numbers are those of `TextMesh::setVerticalAlignment`.
    enum VerticalAlignment { VA_TOP = 0, VA_CENTER = 1, VA_BOTTOM = 2 };

    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// A face may be null: a font without glyphs, all of whose metrics are 0. A size that is not above 0 and below
    /// GREATEST_SIZE counts as DEFAULT_SIZE. For the FontManager.
    Font(const char *name, detail::Face *face, float size);
    ~Font() override;
    Font(const Font &) = delete;
    Font &operator=(const Font &) = delete;

    static constexpr float DEFAULT_SIZE = 16.0f;
    static constexpr float GREATEST_SIZE = 16384.0f;

    /// The own size: pixels an em. A text mesh of scale 1 has it.
    float getSize() const { return mSize; }

    /// Height of a line at the own size, in pixels: ascent and descent, and the gap between lines where the file has
    /// one.
    float getHeight() const { return mAscent + mDescent; }

    /// From the top of a line to its base line, in pixels at the own size.
    float getAscent() const { return mAscent; }

    /// From the base line to the bottom of a line, in pixels at the own size.
    float getDescent() const { return mDescent; }

    /// The metrics of one character; null where this font has no glyph for it (text shows it all the same, from a font
    /// that the manager falls back to). Stays valid as long as the font.
    const Glyph *getGlyph(char32_t character) const;

    /// The first page of the glyphs of all fonts, which is always loaded; null without a manager or where nothing is
    /// drawn. Glyphs are rasterised as they are needed and there is nothing to wait for.
    texture::Texture *getTexture() const;

    /// The file behind the font; null for a font without one. For the library itself.
    detail::Face *getFace() const { return mFace.get(); }

    /// Tells fonts apart, also from ones that are gone. For caches.
    std::uint32_t getId() const { return mId; }

private:
    struct GlyphTable;

    const ::core::SmartPtr<detail::Face> mFace;
    const std::unique_ptr<GlyphTable> mGlyphs;
    const float mSize;
    float mAscent = 0.0f;
    float mDescent = 0.0f;
    const std::uint32_t mId;
};

} // namespace nurel::font
