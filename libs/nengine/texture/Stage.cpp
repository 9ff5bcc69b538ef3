#include "nengine/texture/Stage.h"

#include "nengine/geometry/detail/Revision.h"
#include "nengine/texture/Texture.h"

namespace nurel::texture {

Stage::Stage() = default;
Stage::Stage(Texture *texture) : mTexture(texture) {}
Stage::Stage(const Stage &other) = default;
Stage::~Stage() = default;

Stage &Stage::operator=(const Stage &other) {
    setTexture(other.getTexture());
    return *this;
}

void Stage::setTexture(Texture *texture) {
    mTexture = texture;
    geometry::noteLookChange();
}

} // namespace nurel::texture
