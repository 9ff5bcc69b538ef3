#include "nengine/scene/meshes/detail/TextRaster.h"

#include "nengine/font/detail/Face.h"
#include "nengine/font/detail/TextSystem.h"
#include "nengine/geometry/LocalGeometry.h"
#include "nengine/scene/DrawContext.h"
#include "nmain/math/Matrix4.h"

#include <algorithm>
#include <cmath>

namespace nurel::scene::meshes::detail {

using font::detail::GlyphBitmap;
using font::detail::GlyphCache;
using font::detail::GlyphRasterizer;
using font::detail::ShapedGlyph;
using font::detail::Strike;
using font::detail::TextSystem;

namespace {

// Positions are computed in floats from others that were; what is this close to half a pixel is rounded up every time.
constexpr double HALF_UP = 0.5 + 1.0 / 256;

// A change of place that nobody sees.
constexpr double SAME_FRACTION = 1.0 / 64;

double getFraction(double value) {
    return value - std::floor(value);
}

bool isSameFraction(double a, double b) {
    const double difference = std::abs(getFraction(a) - getFraction(b));
    return std::min(difference, 1.0 - difference) < SAME_FRACTION;
}

bool isSame(float a, float b) {
    return std::abs(a - b) <= 1e-4f * std::max(std::abs(a), std::abs(b));
}

} // namespace

/// How glyph pixels become vertices.
struct TextRaster::Fit {
    double em = 0.0;       ///< units of the mesh
    double texel = 0.0;    ///< units of the mesh that a glyph's pixel takes, where it is not one of the screen
    bool onPixels = false; ///< glyph pixels are those of the screen
    DeviceView view;
};

/// The quads of one page. A text mostly needs one; other pages are noted and done afterwards.
struct TextRaster::Target {
    geometry::LocalGeometry &out;
    texture::RenderData *page = nullptr;
    FirstAndRest<texture::RenderData *> others;

    /// Whether a glyph's quad is to be added now.
    bool takes(const GlyphBitmap &bitmap) {
        if (!bitmap.region.page)
            return false;
        if (!page)
            page = bitmap.region.page;
        if (bitmap.region.page == page) {
            out.beginRun(page, bitmap.colored);
            return true;
        }
        for (std::size_t i = 0; i < others.size(); ++i) {
            if (others[i] == bitmap.region.page)
                return false;
        }
        others.add(bitmap.region.page);
        return false;
    }
};

DeviceView DeviceView::compute(const math::Matrix4 &world, const DrawContext &context) {
    DeviceView view;
    const math::Matrix4 clip = world * context.viewProjection;
    const float w = clip(3, 3);
    if (!(w > 0.0f) || context.width == 0 || context.height == 0)
        return view;
    const math::Vector2 pixels = context.getPixelsPerUnit(world);
    view.scaleX = pixels.x;
    view.scaleY = pixels.y;
    const double halfWidth = static_cast<double>(context.width) / 2;
    const double halfHeight = static_cast<double>(context.height) / 2;
    view.originX = (static_cast<double>(clip(3, 0)) / static_cast<double>(w) + 1.0) * halfWidth;
    view.originY = (1.0 - static_cast<double>(clip(3, 1)) / static_cast<double>(w)) * halfHeight;

    // Upright: the x axis goes right and the y axis down, neither goes away from the eye, and both have one scale.
    constexpr float STRAIGHT = 1e-4f;
    const bool upright = clip(0, 0) > 0.0f && clip(1, 1) < 0.0f &&
                         std::abs(clip(0, 1)) <= STRAIGHT * std::abs(clip(0, 0)) &&
                         std::abs(clip(1, 0)) <= STRAIGHT * std::abs(clip(1, 1));
    const bool flat = std::abs(clip(0, 3)) <= 1e-6f * w && std::abs(clip(1, 3)) <= 1e-6f * w;
    view.aligned = upright && flat && std::abs(view.scaleX - view.scaleY) <= 1e-3f * view.scaleY;
    return view;
}

bool DeviceView::hasScaleOf(const DeviceView &other) const {
    return aligned == other.aligned && isSame(scaleX, other.scaleX) && isSame(scaleY, other.scaleY);
}

bool DeviceView::hasFractionOf(const DeviceView &other) const {
    return isSameFraction(originX, other.originX) && isSameFraction(originY, other.originY);
}

bool TextRaster::noticeView(const DeviceView &view) {
    mLatest = view;
    const bool isFirst = !mSeen || mQuarters == 0 || mGeneration != TextSystem::getGlyphGeneration();
    mSeen = true;
    if (!isFirst && view.hasScaleOf(mView)) {
        const bool isUnderWay = mMoving > 0;
        const bool fits = !view.aligned || view.hasFractionOf(mView);
        if (isUnderWay || !fits)
            mMoving = SETTLE_FRAMES;
        if (isUnderWay || fits)
            return false;
    } else if (!isFirst) {
        mPending = SETTLE_FRAMES;
        const float wanted = static_cast<float>(mQuarters) / 4.0f * view.getScale() / mView.getScale();
        if (view.aligned == mView.aligned && GlyphCache::isNear(mQuarters, GlyphCache::toQuarters(wanted)))
            return false;
    }
    mView = view;
    return true;
}

bool TextRaster::update() {
    const bool dropped = mQuarters != 0 && mGeneration != TextSystem::getGlyphGeneration();
    const bool sizeSettles = mPending > 0 && --mPending == 0;
    const bool placeSettles = mMoving > 0 && --mMoving == 0 && !mLatest.hasFractionOf(mView);
    if (!dropped && !sizeSettles && !placeSettles)
        return false;
    if (dropped)
        mPending = 0;
    mView = mLatest;
    return true;
}

unsigned int TextRaster::chooseSize(const TextContent &content, float pixels, const GlyphCache &cache) const {
    const unsigned int exact = GlyphCache::toQuarters(pixels);
    if (mPending == 0 || mGeneration != TextSystem::getGlyphGeneration())
        return exact;
    if (mQuarters != 0 && GlyphCache::isNear(mQuarters, exact))
        return mQuarters;
    const auto &paragraphs = content.getParagraphs();
    const ShapedParagraph *first = paragraphs[0].shape.get();
    return first && !first->runs.empty() ? cache.findNearest(*first->runs.front().face, exact) : exact;
}

Strike &TextRaster::needStrike(font::detail::Face &face, unsigned int quarters, GlyphCache &cache,
                               FirstAndRest<::core::SmartPtr<Strike>> &used) const {
    Strike &strike = cache.getStrike(face, quarters);
    for (std::size_t i = 0; i < used.size(); ++i) {
        if (used[i] == &strike)
            return strike;
    }
    used.add(&strike);
    return strike;
}

bool TextRaster::build(const TextContent &content, const TextLayout &layout, const TextPlacement &placement,
                       GlyphCache &cache, geometry::LocalGeometry &out) {
    const float pixels = placement.em * mView.getScale();
    if (!(pixels > 0.0f && std::isfinite(pixels)))
        return false;
    const unsigned int quarters = chooseSize(content, pixels, cache);
    const float size = static_cast<float>(quarters) / 4.0f;
    const Fit fit = {static_cast<double>(placement.em), static_cast<double>(placement.em / size),
                     mView.aligned && std::abs(size - pixels) <= 0.126f, mView};

    FirstAndRest<::core::SmartPtr<Strike>> used;
    Target target{out, nullptr, {}};
    TextPieces pieces;
    for (std::size_t pass = 0; pass == 0 || pass <= target.others.size(); ++pass) {
        if (pass > 0)
            target.page = target.others[pass - 1];
        for (std::size_t i = 0; i < layout.lines.size(); ++i) {
            const TextLine &line = layout.lines[i];
            const float start = content.getPieces(line, pieces);
            double pen = static_cast<double>(placement.getLineLeft(line) + start * placement.em);
            const double base = static_cast<double>(placement.getLineTop(line, i) + placement.ascent);
            for (std::size_t p = 0; p < pieces.size(); ++p) {
                Strike &strike = needStrike(*pieces[p].run->face, quarters, cache, used);
                buildRun(*content.getParagraphs()[line.paragraph].shape, pieces[p], strike, fit, pen, base, target);
            }
        }
    }
    mStrikes = std::move(used);
    mQuarters = quarters;
    mGeneration = TextSystem::getGlyphGeneration();
    return !out.vertices.empty();
}

void TextRaster::buildRun(const ShapedParagraph &shape, const TextPiece &piece, Strike &strike, const Fit &fit,
                          double &penX, double baseY, Target &target) const {
    const double scale = static_cast<double>(fit.view.scaleX);
    const double down = static_cast<double>(fit.view.scaleY);
    for (const ShapedGlyph &glyph : shape.getGlyphs(*piece.run, piece.first, piece.end)) {
        const double x = penX + static_cast<double>(glyph.offsetX) * fit.em;
        const double y = baseY - static_cast<double>(glyph.offsetY) * fit.em;
        penX += static_cast<double>(glyph.advance) * fit.em;

        constexpr double BINS = GlyphRasterizer::SUBPIXEL_BINS;
        double pixelX = 0.0;
        unsigned int bin = 0;
        if (fit.onPixels) {
            const double bins = strike.isSubpixel() ? BINS : 1.0;
            const double steps = std::floor((fit.view.originX + x * scale) * bins + HALF_UP);
            pixelX = std::floor(steps / bins);
            bin = static_cast<unsigned int>(steps - pixelX * bins);
        }
        const GlyphBitmap &bitmap = strike.getGlyph(glyph.glyph, bin);
        if (!target.takes(bitmap))
            continue;
        const texture::Atlas::Region &region = bitmap.region;
        const double left = static_cast<double>(bitmap.left) * static_cast<double>(bitmap.scale);
        const double top = static_cast<double>(bitmap.top) * static_cast<double>(bitmap.scale);
        const double width = static_cast<double>(region.w) * static_cast<double>(bitmap.scale);
        const double height = static_cast<double>(region.h) * static_cast<double>(bitmap.scale);
        if (fit.onPixels) {
            const double x0 = pixelX + left;
            const double y0 = std::floor(fit.view.originY + y * down + HALF_UP) - top;
            target.out.addQuad(static_cast<float>((x0 - fit.view.originX) / scale),
                               static_cast<float>((y0 - fit.view.originY) / down),
                               static_cast<float>((x0 + width - fit.view.originX) / scale),
                               static_cast<float>((y0 + height - fit.view.originY) / down), region.u0, region.v0,
                               region.u1, region.v1);
        } else {
            // Half a pixel of the clear border comes with it, so that edges stay smooth when they are turned.
            const double edge = 0.5 * static_cast<double>(bitmap.scale);
            const double x0 = x + (left - edge) * fit.texel;
            const double y0 = y - (top + edge) * fit.texel;
            const float du = 0.5f * (region.u1 - region.u0) / static_cast<float>(region.w);
            const float dv = 0.5f * (region.v1 - region.v0) / static_cast<float>(region.h);
            target.out.addQuad(static_cast<float>(x0), static_cast<float>(y0),
                               static_cast<float>(x0 + (width + 2 * edge) * fit.texel),
                               static_cast<float>(y0 + (height + 2 * edge) * fit.texel), region.u0 - du, region.v0 - dv,
                               region.u1 + du, region.v1 + dv);
        }
    }
}

} // namespace nurel::scene::meshes::detail
