#include "nengine/renderer/Backend.h"

namespace nurel::renderer {

namespace {
/// What every device that draws at all can do.
constexpr unsigned int SAFE_TEXTURE_SIZE = 2048;
} // namespace

Backend::Backend() = default;
Backend::~Backend() = default;

bool Backend::readPixels(unsigned int, unsigned int, unsigned int, unsigned int, void *) {
    return false;
}

void Backend::setTextureRepeat(TextureId, bool) {}

unsigned int Backend::getMaximumTextureSize() {
    return SAFE_TEXTURE_SIZE;
}

} // namespace nurel::renderer
