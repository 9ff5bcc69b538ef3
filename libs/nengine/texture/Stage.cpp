#include "nengine/texture/Stage.h"

#include "nengine/texture/Texture.h"

namespace nurel::texture {

Stage::Stage() = default;
Stage::Stage(Texture *texture) : mTexture(texture) {}
Stage::Stage(const Stage &other) = default;
Stage &Stage::operator=(const Stage &other) = default;
Stage::~Stage() = default;

void Stage::setTexture(Texture *texture) {
    mTexture = texture;
}

} // namespace nurel::texture
