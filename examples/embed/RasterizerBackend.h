#pragma once

#include "Rasterizer.h"

#include "nengine/renderer/Backend.h"

#include <map>

/// All that joins the toolkit to the engine of this example: textures, and drawing lists of triangles into its target.
class RasterizerBackend : public nurel::renderer::Backend {
public:
    /// The target is the engine's and outlives this object.
    explicit RasterizerBackend(engine3d::Target &target) : mTarget(target) {}

    nurel::renderer::TextureId createTexture(unsigned int width, unsigned int height,
                                             nurel::renderer::PixelFormat format, const void *pixels) override;
    void updateTexture(nurel::renderer::TextureId id, unsigned int x, unsigned int y, unsigned int width,
                       unsigned int height, const void *pixels) override;
    void destroyTexture(nurel::renderer::TextureId id) override;
    void submit(const nurel::renderer::DrawList &list, const nurel::renderer::FrameTarget &target) override;

private:
    struct Texture {
        unsigned int width;
        unsigned int height;
        std::vector<std::uint8_t> rgba;

        engine3d::Color sample(float u, float v) const;
        engine3d::Color getTexel(float x, float y) const;
    };

    void draw(const nurel::renderer::DrawList &list, const nurel::renderer::DrawCommand &command);
    void shade(const nurel::renderer::DrawCommand &command, const Texture *texture, const engine3d::Fragment &fragment);

    engine3d::Target &mTarget;
    std::map<nurel::renderer::TextureId, Texture> mTextures;
    nurel::renderer::TextureId mLastId = nurel::renderer::NO_TEXTURE;
};
