#pragma once

#include "foundation/core/IRefCount.h"
#include "nengine/renderer/DrawList.h"

#include <memory>

namespace nurel::renderer {
class Backend;
}

namespace nurel::texture {

/// The way from render data to the backend that made it. Who makes render data (the atlas, the texture pool) shares one
/// link with it and clears it when the engine goes, so that render data may outlive the engine.
struct BackendLink {
    renderer::Backend *backend;
};

/// One texture of the backend: an atlas page or a picture of its own. Counted by everything that draws with it; the
/// backend's texture is destroyed with the last holder, or by the backend's own end if that comes first. Render thread.
class RenderData : public ::core::IRefCount {
public:
    /// Takes over the id. `id` may be `NO_TEXTURE`.
    RenderData(std::shared_ptr<const BackendLink> link, renderer::TextureId id, unsigned int width,
               unsigned int height);
    ~RenderData() override;
    RenderData(const RenderData &) = delete;
    RenderData &operator=(const RenderData &) = delete;

    const renderer::TextureId id;
    const unsigned int width; ///< pixels
    const unsigned int height;

private:
    std::shared_ptr<const BackendLink> mLink;
};

} // namespace nurel::texture
