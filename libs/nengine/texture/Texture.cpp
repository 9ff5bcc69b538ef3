#include "nengine/texture/Texture.h"

#include "nengine/geometry/detail/Revision.h"
#include "nengine/texture/TexturePool.h"

namespace nurel::texture {

namespace {

/// Render thread only. Shared by all textures, so that another texture at the same address is noticed as well.
std::uint64_t lastRevision = 0;

} // namespace

constinit const ::core::Type Texture::TYPE("Texture", &core::NamedObject::TYPE);

Texture::Texture(const char *name) : NamedObject(name), mRevision(++lastRevision) {}

Texture::Texture(const char *name, RenderData *data) : Texture(name) {
    mData = data;
    mWidth = data ? data->width : 0;
    mHeight = data ? data->height : 0;
}

Texture::~Texture() {
    if (mPool)
        mPool->textureDestroyed(*this);
}

void Texture::setWrapping(unsigned int wrapping) {
    const Wrapping wanted = wrapping == W_REPEAT ? W_REPEAT : W_CLAMP;
    if (wanted == mWrapping)
        return;
    mWrapping = wanted;
    if (mPool)
        mPool->applyWrapping(*this);
}

void Texture::touch() {
    mRevision = ++lastRevision;
    geometry::noteLookChange();
}

} // namespace nurel::texture
