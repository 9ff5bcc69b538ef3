#include "nengine/texture/RenderData.h"

#include "nengine/renderer/Backend.h"

#include <utility>

namespace nurel::texture {

RenderData::RenderData(std::shared_ptr<const BackendLink> link, renderer::TextureId textureId, unsigned int w,
                       unsigned int h)
    : id(textureId), width(w), height(h), mLink(std::move(link)) {}

RenderData::~RenderData() {
    if (mLink && mLink->backend && id != renderer::NO_TEXTURE)
        mLink->backend->destroyTexture(id);
}

} // namespace nurel::texture
