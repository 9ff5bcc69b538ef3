#pragma once

#include "nengine/scene/Frame.h"

namespace nurel::geometry {
class LocalGeometry;
class MeshGeometry;
} // namespace nurel::geometry

namespace nurel::renderer {
struct FrameStatistics;
}

namespace nurel::texture {
class Atlas;
class Texture;
} // namespace nurel::texture

namespace nurel::scene {

struct DrawContext;

/// A frame that draws. It keeps what it draws in its own space and, beside that, as coloured vertices in the world; the
/// first is made anew after `setChanged`, the second also when the world transform, the material, the blend flag or the
/// texture changed, and neither otherwise. Both are made when the mesh is about to be drawn, so a mesh that is never
/// seen has none.
class Mesh : public Frame {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit Mesh(const char *name = "");
    ~Mesh() override;

    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// Whether `buildGeometry` will be asked before the mesh is drawn next.
    bool isChanged() const { return hasFlag(GEOMETRY_CHANGED); }
    void setChanged(bool changed) { setFlag(GEOMETRY_CHANGED, changed); }

    /// Builds the geometry if it is out of date, and computes the rectangle around it in the mesh's own space.
    void computeBound();

    /// As of the last `computeBound` or drawing; zero when there is nothing to draw.
    math::Vector2 getMinBound() const;
    math::Vector2 getMaxBound() const;

    /// The texture of stage 0 of the texture property, own or inherited, as of the last update; null when there is
    /// none.
    texture::Texture *getTexture() const;

    void onVisible(Culler *culler, math::Frustum::EFrustumResult result) override;

    /// Brings what is drawn up to date and gives it out; it may be empty. For the renderer. Adds what had to be built
    /// and the vertices that had to be computed to the statistics.
    const geometry::MeshGeometry &prepareGeometry(const DrawContext &context, renderer::FrameStatistics &statistics);

    /// A number that changes with every change of what `prepareGeometry` gives out.
    std::uint32_t getDrawStamp() const { return mDrawStamp; }

    /// Whether neither the mesh's data nor its world transform changed since the last `prepareGeometry`.
    bool isUntouched() const { return !hasFlag(WORLD_CHANGED | GEOMETRY_CHANGED); }

    /// Makes all of it from nothing, into `out`, and leaves what is kept alone. For checks of what is kept.
    void rebuildGeometry(const DrawContext &context, geometry::MeshGeometry &out);

protected:
    /// Fills the geometry in the mesh's own space; `out` is empty when it comes. Returns false when there is nothing to
    /// draw. It is not asked again until `setChanged(true)`. A mesh that draws the texture of its texture property is
    /// asked when that texture becomes another or is loaded.
    virtual bool buildGeometry(geometry::LocalGeometry &out);

    /// Called before drawing when the world transform or the view changed. A mesh whose geometry depends on them, such
    /// as a text whose glyphs are drawn for a size on the screen, calls `setChanged(true)` where it has to.
    virtual void viewChanged(const DrawContext &context);

private:
    void noticeView(const DrawContext &context);
    void noticeTexture();
    void buildLocal(geometry::MeshGeometry &out, const texture::Atlas *atlas);
    void buildWorld(geometry::MeshGeometry &out) const;
    geometry::MeshGeometry &needGeometry();

    std::uint32_t mDrawStamp = 0;
    std::unique_ptr<geometry::MeshGeometry> mGeometry;
};

} // namespace nurel::scene
