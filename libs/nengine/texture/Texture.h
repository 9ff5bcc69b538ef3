#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/texture/Atlas.h"
#include "nmain/core/NamedObject.h"

#include <cstdint>

namespace nurel::texture {

class TexturePool;

/// A picture that meshes draw. It is there, under its name, before its pixels are: until then `getRenderData` is null
/// and the size is 0. Its pixels are a rectangle of some render data, a page of the atlas or a texture of its own.
/// Meshes hold the texture and look at its revision to see that it was loaded, reloaded or moved. Render thread.
class Texture : public core::NamedObject {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// What lies outside 0 to 1.
    enum Wrapping : unsigned int {
        W_REPEAT = 0, ///< the picture again; where the backend cannot, as W_CLAMP
        W_CLAMP = 2   ///< its edge
    };

    /// A part of some render data, as u and v at its outer edges.
    struct Rectangle {
        float u0 = 0, v0 = 0, u1 = 1, v1 = 1;
    };

    /// A texture without pixels, which the pool fills.
    explicit Texture(const char *name = "");

    /// A loaded texture: all of some render data, such as an atlas page.
    Texture(const char *name, RenderData *data);

    ~Texture() override;

    /// False once its file could not be decoded. True while nobody knows yet.
    bool isValid() const { return mValid; }

    /// Pixels; 0 until they are known.
    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }

    /// Null until the texture has been loaded.
    RenderData *getRenderData() const { return mData.get(); }

    /// Where the picture lies in the render data; all of it until it has been loaded.
    const Rectangle &getRegion() const { return mRectangle; }

    /// W_CLAMP at first. A repeating texture gets render data of its own, at once if it has been loaded. Numbers other
    /// than those of `Wrapping` count as W_CLAMP.
    void setWrapping(unsigned int wrapping);
    unsigned int getWrapping() const { return mWrapping; }

    /// A number that no texture had before and that changes when render data, region, size or validity change.
    std::uint64_t getRevision() const { return mRevision; }

private:
    friend class TexturePool;

    void touch();

    ::core::SmartPtr<RenderData> mData;
    TexturePool *mPool = nullptr; ///< null: made by hand, or the pool has gone
    Atlas::Region mPlace;         ///< in the atlas; without a page when the render data is its own
    Rectangle mRectangle;
    std::uint64_t mRevision;
    unsigned int mWidth = 0;
    unsigned int mHeight = 0;
    Wrapping mWrapping = W_CLAMP;
    bool mValid = true;
};

} // namespace nurel::texture
