#pragma once

#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nmain/math/Vector4.h"

namespace nurel::scene::meshes {

/// A rectangle whose texture is cut into nine: corners keep their size, edges are stretched along themselves and the
/// middle is stretched both ways.
///
/// A texture may hold several skins, looks of one control: equal cells of a grid, counted row by row. The border is cut
/// out of the current skin. Without a texture all of it is one flat rectangle.
class BorderedRectangleMesh : public SizeableRectangleMesh {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// What happens along an axis in which the rectangle is smaller than its two borders together.
    enum BorderFixMode : unsigned int {
        BORDER_FIX_NONE = 0, ///< borders keep their size, from the two sides, and overlap
        BORDER_FIX_ZERO = 1, ///< no border in this axis: one slice is stretched
        BORDER_FIX_FIT = 2   ///< both borders are reduced by one factor until they fit
    };

    /// The border is (top, right, bottom, left), in pixels of the texture and units of the mesh alike. Texture and
    /// allocator may be null; a texture becomes stage 0 of a texture property of the mesh's own.
    BorderedRectangleMesh(const char *name, const math::Vector2 &size, const math::Vector4 &border,
                          texture::Texture *texture = nullptr, geometry::MeshDataAllocator *allocator = nullptr);
    ~BorderedRectangleMesh() override;

    using SizeableRectangleMesh::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// Top, right, bottom, left; what is below 0 counts as 0.
    math::Vector4 getBorder() const;
    void setBorder(const math::Vector4 &border);

    BorderFixMode getBorderFixMode() const;
    void setBorderFixMode(BorderFixMode mode);

    /// Skins across and down, 1 and 1 at first; 0 counts as 1.
    void setSkinCount(unsigned int u, unsigned int v);
    unsigned int getSkinCountU() const;
    unsigned int getSkinCountV() const;

    /// From 0; an index outside the skins shows the nearest one.
    void setCurrentSkin(int skin);
    int getCurrentSkin() const;

    /// Pixels from the top left of the texture to the first skin; below 0 (as at first): 0.
    void setSkinOffset(const math::Vector2 &offset);
    math::Vector2 getSkinOffset() const;

    /// Pixels of one skin; 0 or below (as at first): what the skins have of the texture when they share it evenly.
    void setSkinSize(const math::Vector2 &size);
    math::Vector2 getSkinSize() const;

    /// Pixels between two skins, 0 at first.
    void setSkinSpacing(int spacing);
    int getSkinSpacing() const;

    /// The size of one skin in pixels of the texture; zero without a texture or while its size is not known.
    math::Vector2 getSkinSizePixels() const;

protected:
    bool buildGeometry(geometry::LocalGeometry &out) override;

private:
    struct Options;
    struct Cuts;

    const Options &getOptions() const;
    template <class T>
    void setOption(T Options::*option, const T &value);
    math::Vector2 getCurrentSkinOrigin(const math::Vector2 &skinSize) const;

    math::Vector4 mBorder;
    std::unique_ptr<Options> mOptions; ///< null: all as at first, as for most
};

} // namespace nurel::scene::meshes
