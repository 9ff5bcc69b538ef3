#include "nengine/scene/meshes/BorderedRectangleMesh.h"

#include "nengine/geometry/LocalGeometry.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/Texture.h"

#include <algorithm>

namespace nurel::scene::meshes {

constinit const ::core::Type BorderedRectangleMesh::TYPE("BorderedRectangleMesh", &SizeableRectangleMesh::TYPE);

struct BorderedRectangleMesh::Options {
    unsigned int skinCountU = 1;
    unsigned int skinCountV = 1;
    int currentSkin = 0;
    int skinSpacing = 0;
    math::Vector2 skinOffset{-1.0f, -1.0f};
    math::Vector2 skinSize{-1.0f, -1.0f};
    BorderFixMode borderFixMode = BORDER_FIX_NONE;
};

/// The four lines that cut one axis of rectangle and texture into before, middle and after.
struct BorderedRectangleMesh::Cuts {
    float place[4] = {};
    float pixel[4] = {};

    /// `size` along the axis, the borders at its two ends, and the skin's first pixel and length.
    Cuts(float size, float before, float after, float skinStart, float skinSize, BorderFixMode mode) {
        float beforePlace = before;
        float afterPlace = after;
        if (before + after > size) {
            switch (mode) {
            case BORDER_FIX_NONE:
                break;
            case BORDER_FIX_ZERO:
                before = after = beforePlace = afterPlace = 0.0f;
                break;
            case BORDER_FIX_FIT:
                beforePlace = size * (before / (before + after));
                afterPlace = size - beforePlace;
                break;
            }
        }
        // A border that is larger than the skin gets its share of it.
        const float part = before + after > skinSize ? skinSize / (before + after) : 1.0f;
        const float half = size * 0.5f;
        const float places[4] = {-half, beforePlace - half, half - afterPlace, half};
        const float pixels[4] = {skinStart, skinStart + before * part, skinStart + skinSize - after * part,
                                 skinStart + skinSize};
        std::copy_n(places, 4, place);
        std::copy_n(pixels, 4, pixel);
    }

    /// Parts that have no width are not drawn; with overlapping borders the middle has less than none.
    bool isDrawn(unsigned int part) const { return place[part] < place[part + 1]; }
    bool isUsed(unsigned int line) const { return (line > 0 && isDrawn(line - 1)) || (line < 3 && isDrawn(line)); }

    /// The cuts of the texture as u or v, kept inside the texture so that no neighbour on its page shows.
    void toTexture(float textureSize, float first, float last) {
        for (float &value : pixel)
            value = first + std::clamp(value / textureSize, 0.0f, 1.0f) * (last - first);
    }
};

namespace {

float getSkinStart(float offset, float size, int spacing, std::uint64_t index) {
    return std::max(offset, 0.0f) + static_cast<float>(index) * (size + static_cast<float>(spacing));
}

float getSkinLength(float wanted, float textureSize, float offset, int spacing, unsigned int count) {
    if (wanted > 0.0f)
        return wanted;
    const float skins =
        textureSize - std::max(offset, 0.0f) - static_cast<float>(spacing) * static_cast<float>(count - 1);
    return std::max(skins / static_cast<float>(count), 0.0f);
}

} // namespace

BorderedRectangleMesh::BorderedRectangleMesh(const char *name, const math::Vector2 &size, const math::Vector4 &border,
                                             texture::Texture *texture, geometry::MeshDataAllocator *allocator)
    : SizeableRectangleMesh(name, size, allocator) {
    setBorder(border);
    if (!texture)
        return;
    auto *property = new properties::TextureProperty();
    setProperty(property);
    property->getStage(0).setTexture(texture);
}

BorderedRectangleMesh::~BorderedRectangleMesh() = default;

core::Object *BorderedRectangleMesh::clone(core::CloningOptions &options) const {
    auto *copy = new BorderedRectangleMesh(getName(), getSize(), mBorder, nullptr, getAllocator());
    _clone(copy, options);
    return copy;
}

void BorderedRectangleMesh::_clone(core::Object *target, core::CloningOptions &options) const {
    if (target && target != this && target->instanceOf(TYPE)) {
        auto &mesh = *static_cast<BorderedRectangleMesh *>(target);
        mesh.mBorder = mBorder;
        mesh.mOptions = mOptions ? std::make_unique<Options>(*mOptions) : nullptr;
    }
    SizeableRectangleMesh::_clone(target, options);
}

math::Vector4 BorderedRectangleMesh::getBorder() const {
    return mBorder;
}

void BorderedRectangleMesh::setBorder(const math::Vector4 &border) {
    const math::Vector4 cut(std::max(border.x, 0.0f), std::max(border.y, 0.0f), std::max(border.z, 0.0f),
                            std::max(border.w, 0.0f));
    if (mBorder == cut)
        return;
    mBorder = cut;
    setChanged(true);
}

const BorderedRectangleMesh::Options &BorderedRectangleMesh::getOptions() const {
    static const Options standard;
    return mOptions ? *mOptions : standard;
}

template <class T>
void BorderedRectangleMesh::setOption(T Options::*option, const T &value) {
    if (getOptions().*option == value)
        return;
    if (!mOptions)
        mOptions = std::make_unique<Options>();
    (*mOptions).*option = value;
    setChanged(true);
}

BorderedRectangleMesh::BorderFixMode BorderedRectangleMesh::getBorderFixMode() const {
    return getOptions().borderFixMode;
}

void BorderedRectangleMesh::setBorderFixMode(BorderFixMode mode) {
    setOption(&Options::borderFixMode, mode);
}

void BorderedRectangleMesh::setSkinCount(unsigned int u, unsigned int v) {
    setOption(&Options::skinCountU, std::max(u, 1u));
    setOption(&Options::skinCountV, std::max(v, 1u));
}

unsigned int BorderedRectangleMesh::getSkinCountU() const {
    return getOptions().skinCountU;
}

unsigned int BorderedRectangleMesh::getSkinCountV() const {
    return getOptions().skinCountV;
}

void BorderedRectangleMesh::setCurrentSkin(int skin) {
    setOption(&Options::currentSkin, skin);
}

int BorderedRectangleMesh::getCurrentSkin() const {
    return getOptions().currentSkin;
}

void BorderedRectangleMesh::setSkinOffset(const math::Vector2 &offset) {
    setOption(&Options::skinOffset, offset);
}

math::Vector2 BorderedRectangleMesh::getSkinOffset() const {
    return getOptions().skinOffset;
}

void BorderedRectangleMesh::setSkinSize(const math::Vector2 &size) {
    setOption(&Options::skinSize, size);
}

math::Vector2 BorderedRectangleMesh::getSkinSize() const {
    return getOptions().skinSize;
}

void BorderedRectangleMesh::setSkinSpacing(int spacing) {
    setOption(&Options::skinSpacing, std::max(spacing, 0));
}

int BorderedRectangleMesh::getSkinSpacing() const {
    return getOptions().skinSpacing;
}

math::Vector2 BorderedRectangleMesh::getSkinSizePixels() const {
    const texture::Texture *const texture = getTexture();
    if (!texture || texture->getWidth() == 0 || texture->getHeight() == 0)
        return math::Vector2::ZERO;
    const Options &options = getOptions();
    return {getSkinLength(options.skinSize.x, static_cast<float>(texture->getWidth()), options.skinOffset.x,
                          options.skinSpacing, options.skinCountU),
            getSkinLength(options.skinSize.y, static_cast<float>(texture->getHeight()), options.skinOffset.y,
                          options.skinSpacing, options.skinCountV)};
}

math::Vector2 BorderedRectangleMesh::getCurrentSkinOrigin(const math::Vector2 &skinSize) const {
    const Options &options = getOptions();
    const std::uint64_t count = std::uint64_t{options.skinCountU} * options.skinCountV;
    const std::uint64_t skin = std::min(static_cast<std::uint64_t>(std::max(options.currentSkin, 0)), count - 1);
    return {getSkinStart(options.skinOffset.x, skinSize.x, options.skinSpacing, skin % options.skinCountU),
            getSkinStart(options.skinOffset.y, skinSize.y, options.skinSpacing, skin / options.skinCountU)};
}

bool BorderedRectangleMesh::buildGeometry(geometry::LocalGeometry &out) {
    const texture::Texture *const texture = getTexture();
    const math::Vector2 skin = getSkinSizePixels();
    if (!texture || skin == math::Vector2::ZERO)
        return SizeableRectangleMesh::buildGeometry(out);
    const math::Vector2 &size = getSize();
    if (!texture->getRenderData() || !(size.x > 0.0f && size.y > 0.0f))
        return false;

    const math::Vector2 origin = getCurrentSkinOrigin(skin);
    Cuts columns(size.x, mBorder.w, mBorder.y, origin.x, skin.x, getBorderFixMode());
    Cuts rows(size.y, mBorder.x, mBorder.z, origin.y, skin.y, getBorderFixMode());
    const texture::Texture::Rectangle &region = texture->getRegion();
    columns.toTexture(static_cast<float>(texture->getWidth()), region.u0, region.u1);
    rows.toTexture(static_cast<float>(texture->getHeight()), region.v0, region.v1);

    out.beginRun(texture->getRenderData());
    std::uint32_t corner[4][4] = {};
    for (unsigned int y = 0; y < 4; ++y) {
        for (unsigned int x = 0; x < 4; ++x) {
            if (columns.isUsed(x) && rows.isUsed(y))
                corner[y][x] = out.addVertex(columns.place[x], rows.place[y], columns.pixel[x], rows.pixel[y]);
        }
    }
    for (unsigned int y = 0; y < 3; ++y) {
        for (unsigned int x = 0; x < 3; ++x) {
            if (!columns.isDrawn(x) || !rows.isDrawn(y))
                continue;
            out.addTriangle(corner[y][x], corner[y][x + 1], corner[y + 1][x + 1]);
            out.addTriangle(corner[y][x], corner[y + 1][x + 1], corner[y + 1][x]);
        }
    }
    return true;
}

} // namespace nurel::scene::meshes
