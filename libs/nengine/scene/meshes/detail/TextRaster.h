#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/font/detail/GlyphCache.h"
#include "nengine/scene/meshes/detail/TextContent.h"

#include <cstdint>

namespace nurel::geometry {
class LocalGeometry;
}

namespace nurel::math {
class Matrix4;
}

namespace nurel::scene {
struct DrawContext;
}

namespace nurel::scene::meshes::detail {

/// How a mesh's own space lies on the pixels of the screen.
struct DeviceView {
    double originX = 0.0; ///< in pixels from the top left
    double originY = 0.0;
    float scaleX = 1.0f; ///< pixels a unit
    float scaleY = 1.0f;
    bool aligned = true; ///< upright and not stretched: pixels of glyphs can be those of the screen

    static DeviceView compute(const math::Matrix4 &world, const DrawContext &context);

    float getScale() const { return scaleX > scaleY ? scaleX : scaleY; }
    bool hasScaleOf(const DeviceView &other) const;

    /// Whether the same vertices lie on the pixels in the same way.
    bool hasFractionOf(const DeviceView &other) const;
};

/// What it takes to draw a text beside its lines.
struct TextPlacement {
    float em = 0.0f; ///< units of the mesh
    float left = 0.0f;
    float top = 0.0f; ///< of the box
    float boxWidth = 0.0f;
    float alignment = 0.0f; ///< share of what a line leaves free that is on its left
    float ascent = 0.0f;
    float linePitch = 0.0f;
    float paragraphGap = 0.0f;

    float getLineLeft(const TextLine &line) const { return left + (boxWidth - line.width * em) * alignment; }

    /// `index` is the line's.
    float getLineTop(const TextLine &line, std::size_t index) const {
        return top + static_cast<float>(index) * linePitch + static_cast<float>(line.paragraph) * paragraphGap;
    }
};

/// The glyphs that a mesh is drawn with. Made when it is drawn first.
///
/// Glyphs are rasterised for the size that reaches the screen, and upright ones are placed on whole pixels. While that
/// size changes from frame to frame, glyphs of a size close to it are stretched; once it has held still for
/// SETTLE_FRAMES updates the mesh is built with glyphs of just this size. So it is with the place: a text that moves by
/// parts of pixels is placed on whole ones with its first step, then only moved along, and placed anew at its end.
class TextRaster {
public:
    static constexpr std::uint8_t SETTLE_FRAMES = 2;

    /// The view that the mesh is about to be drawn in. Returns whether the mesh has to be built anew.
    bool noticeView(const DeviceView &view);

    /// Once an update. Returns whether the mesh has to be built anew.
    bool update();

    /// Makes quads of all glyphs. Returns false when there are none.
    bool build(const TextContent &content, const TextLayout &layout, const TextPlacement &placement,
               font::detail::GlyphCache &cache, geometry::LocalGeometry &out);

private:
    struct Target;
    struct Fit;

    unsigned int chooseSize(const TextContent &content, float pixels, const font::detail::GlyphCache &cache) const;
    font::detail::Strike &needStrike(font::detail::Face &face, unsigned int quarters, font::detail::GlyphCache &cache,
                                     FirstAndRest<::core::SmartPtr<font::detail::Strike>> &used) const;
    void buildRun(const ShapedParagraph &shape, const TextPiece &piece, font::detail::Strike &strike, const Fit &fit,
                  double &penX, double baseY, Target &target) const;

    DeviceView mView;   ///< that the vertices are for
    DeviceView mLatest; ///< as seen last; taken over when it has settled, and until then what is there is stretched
    FirstAndRest<::core::SmartPtr<font::detail::Strike>> mStrikes; ///< that the vertices come from
    std::uint32_t mGeneration = 0;
    unsigned int mQuarters = 0; ///< glyph size of the vertices; 0: none
    std::uint8_t mPending = 0;  ///< updates until the size counts as settled
    std::uint8_t mMoving = 0;   ///< updates until the place counts as settled
    bool mSeen = false;
};

} // namespace nurel::scene::meshes::detail
