#include "nengine/renderer/RecordingBackend.h"

#include <algorithm>
#include <cstring>

namespace nurel::renderer {

namespace {
constexpr std::size_t BYTES_PER_PIXEL = 4;
}

RecordingBackend::RecordingBackend() = default;
RecordingBackend::~RecordingBackend() = default;

TextureId RecordingBackend::createTexture(unsigned int width, unsigned int height, PixelFormat, const void *pixels) {
    if (width == 0 || height == 0 || width > mMaximumTextureSize || height > mMaximumTextureSize)
        return NO_TEXTURE;
    Texture texture{width, height, 0, std::vector<std::uint8_t>(std::size_t{width} * height * BYTES_PER_PIXEL)};
    if (pixels) {
        std::memcpy(texture.pixels.data(), pixels, texture.pixels.size());
        mUploadedPixels += std::uint64_t{width} * height;
    }
    mTextures.emplace(++mLastId, std::move(texture));
    ++mCreated;
    return mLastId;
}

void RecordingBackend::updateTexture(TextureId id, unsigned int x, unsigned int y, unsigned int width,
                                     unsigned int height, const void *pixels) {
    const auto found = mTextures.find(id);
    if (found == mTextures.end() || !pixels)
        return;
    Texture &texture = found->second;
    if (x > texture.width || width > texture.width - x || y > texture.height || height > texture.height - y)
        return;
    const auto *row = static_cast<const std::uint8_t *>(pixels);
    for (unsigned int i = 0; i < height; ++i) {
        const std::size_t first = (std::size_t{y + i} * texture.width + x) * BYTES_PER_PIXEL;
        std::copy_n(row, width * BYTES_PER_PIXEL, texture.pixels.begin() + static_cast<std::ptrdiff_t>(first));
        row += width * BYTES_PER_PIXEL;
    }
    ++texture.updates;
    ++mUpdated;
    mUploadedPixels += std::uint64_t{width} * height;
}

void RecordingBackend::destroyTexture(TextureId id) {
    if (mTextures.erase(id) != 0)
        ++mDestroyed;
}

void RecordingBackend::submit(const DrawList &list, const FrameTarget &target) {
    ++mSubmits;
    mTarget = target;
    if (list.revision == mList.revision) {
        ++mSameRevision;
        return;
    }
    mVertices.assign(list.vertices, list.vertices + list.vertexCount);
    mIndices.assign(list.indices, list.indices + list.indexCount);
    mCommands.assign(list.commands, list.commands + list.commandCount);
    mList = list;
    mList.vertices = mVertices.data();
    mList.indices = mIndices.data();
    mList.commands = mCommands.data();
}

std::vector<DrawVertex> RecordingBackend::getVertices(const DrawCommand &command) const {
    std::vector<DrawVertex> vertices;
    vertices.reserve(command.indexCount);
    for (std::uint32_t i = 0; i < command.indexCount; ++i)
        vertices.push_back(mVertices.at(mIndices.at(command.firstIndex + i)));
    return vertices;
}

void RecordingBackend::getScreenPosition(const DrawVertex &vertex, float &x, float &y) const {
    const float *const m = mList.viewProjection;
    const float clipX = vertex.x * m[0] + vertex.y * m[4] + vertex.z * m[8] + m[12];
    const float clipY = vertex.x * m[1] + vertex.y * m[5] + vertex.z * m[9] + m[13];
    const float clipW = vertex.x * m[3] + vertex.y * m[7] + vertex.z * m[11] + m[15];
    x = (clipX / clipW + 1.0f) * 0.5f * static_cast<float>(mTarget.width);
    y = (1.0f - clipY / clipW) * 0.5f * static_cast<float>(mTarget.height);
}

} // namespace nurel::renderer
