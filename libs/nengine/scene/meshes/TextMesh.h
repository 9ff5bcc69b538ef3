#pragma once

#include "nengine/scene/meshes/TriangleMesh.h"
#include "nmain/math/Vector2.h"

#include <cstdint>
#include <memory>
#include <string>

namespace nurel::font {
class Font;
}

namespace nurel::scene::meshes {

namespace detail {
class TextContent;
class TextRaster;
struct TextLayout;
struct TextPlacement;
} // namespace detail

/// A text: one font, any number of paragraphs (a line feed, a carriage return or both end one), broken into lines where
/// a width is given.
///
/// The text stands in a box that is centred on the mesh's origin, x to the right and y downward. The box is as large as
/// the size limit, and on an axis without a limit as large as the text (its extents). Lines are placed in it by the
/// alignments; nothing is clipped to it.
///
/// Indexes are in characters, that is, code points; a malformed byte counts as one. Setters only note what changed:
/// shaping and line breaking are done when something is asked for or the mesh is about to be drawn, and are kept. The
/// colour is that of the mesh's own MaterialProperty (white at first); of colour glyphs only its alpha counts.
class TextMesh : public TriangleMesh {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// A null font is one without glyphs. The mesh has its own AlphaProperty (blending) and MaterialProperty from here
    /// on.
    explicit TextMesh(const char *name = "", font::Font *font = nullptr);
    ~TextMesh() override;

    /// The copy has its own text, with the same font, scale, layout and state of its properties.
    using TriangleMesh::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// UTF-8; null counts as "". The text may be the mesh's own, or a part of it. The text that the mesh has already
    /// costs a comparison.
    void setText(const char *text);

    /// Never null; valid until the next setText.
    const char *getText() const { return mText.c_str(); }

    unsigned int getCharacterCount() const { return mCharacterCount; }

    void setFont(font::Font *font);
    font::Font *getFont() const { return mFont.get(); }

    /// Factor on the font's own size, 1 at first; what is not above 0 counts as 0: nothing is drawn, and the text has
    /// no size. Not the scale of the frame, which is `Frame::setScale`.
    void setScale(float scale);
    float getScale() const { return mScale; }

    /// Largest width and height of the text; negative: no limit on this axis, as at first. Lines are broken to keep the
    /// width, inside a word only where that is wider than a line. A height limits nothing: it is the box's.
    void setSizeLimit(const math::Vector2 &limit);
    const math::Vector2 &getSizeLimit() const { return mLayout.sizeLimit; }

    /// Width of the widest line and height of all lines, each rounded up to a whole number. Spaces at the end of a
    /// broken line do not count. An empty text is one line high and has no width.
    math::Vector2 getExtents() const;

    /// 0 left (as at first), 1 centre, 2 right; other numbers count as 0. See `Font::HorizontalAlignment`.
    void setHorizontalAlignment(unsigned int alignment);
    unsigned int getHorizontalAlignment() const { return mLayout.horizontalAlignment; }

    /// 0 top (as at first), 1 middle, 2 bottom; other numbers count as 0. See `Font::VerticalAlignment`.
    void setVerticalAlignment(unsigned int alignment);
    unsigned int getVerticalAlignment() const { return mLayout.verticalAlignment; }

    /// From one base line to the next, as a factor on the font's height; 1 at first.
    void setLineSpacing(float spacing);
    float getLineSpacing() const { return mLayout.lineSpacing; }

    /// What is added between two paragraphs, as a factor on the font's height; 0 at first.
    void setParagraphSpacing(float spacing);
    float getParagraphSpacing() const { return mLayout.paragraphSpacing; }

    /// Top left of the character's cell: where the caret in front of it stands. In right-to-left text that is the
    /// cell's right edge. Inside a cluster of several characters (a ligature, a letter with marks) it is in proportion.
    /// From the last character on it is the end position.
    math::Vector2 getCharacterPosition(unsigned int index) const;

    /// Where the caret after the last character stands; in an empty text, where the first one would.
    math::Vector2 getEndPosition() const;

    /// Takes over alignments, spacings and size limit of another mesh, and marks this one for a rebuild.
    void copyLayout(const TextMesh &source);

    /// With true, everything is made anew before it is used next: layout and geometry, from the shaped runs in the
    /// cache. False takes nothing back.
    void setRebuild(bool rebuild);

    bool updateInternal(float time, bool parentChanged) override;

protected:
    bool buildGeometry(geometry::LocalGeometry &out) override;
    void viewChanged(const DrawContext &context) override;

private:
    /// What copyLayout() copies.
    struct Layout {
        unsigned int horizontalAlignment = 0;
        unsigned int verticalAlignment = 0;
        float lineSpacing = 1.0f;
        float paragraphSpacing = 0.0f;
        math::Vector2 sizeLimit{-1.0f, -1.0f};
    };

    float getPixelSize() const;
    void contentChanged();
    void layoutChanged();

    // Null without a font.
    const detail::TextContent *needContent() const;
    const detail::TextLayout *needLayout() const;

    float getTextHeight(const detail::TextLayout &layout) const;
    detail::TextPlacement getPlacement(const detail::TextLayout &layout) const;

    std::string mText;
    ::core::SmartPtr<font::Font> mFont;
    Layout mLayout;
    float mScale = 1.0f;
    unsigned int mCharacterCount = 0;
    mutable std::unique_ptr<detail::TextContent> mContent; ///< null: not shaped since the text or the font changed
    std::unique_ptr<detail::TextRaster> mRaster;           ///< null: not drawn yet
};

} // namespace nurel::scene::meshes
