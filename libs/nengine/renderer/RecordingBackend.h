#pragma once

#include "nengine/renderer/Backend.h"

#include <map>
#include <vector>

namespace nurel::renderer {

/// A backend that draws nothing and remembers: the last draw list as a deep copy, and what happened to textures. For
/// tests, and for programs that run screens without showing them.
class RecordingBackend : public Backend {
public:
    struct Texture {
        unsigned int width;
        unsigned int height;
        unsigned int updates;             ///< calls of `updateTexture`
        std::vector<std::uint8_t> pixels; ///< RGBA8; 0 where nothing was written yet
    };

    RecordingBackend();
    ~RecordingBackend() override;

    TextureId createTexture(unsigned int width, unsigned int height, PixelFormat format, const void *pixels) override;
    void updateTexture(TextureId id, unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                       const void *pixels) override;
    void destroyTexture(TextureId id) override;
    void submit(const DrawList &list, const FrameTarget &target) override;
    unsigned int getMaximumTextureSize() override { return mMaximumTextureSize; }

    void setMaximumTextureSize(unsigned int size) { mMaximumTextureSize = size; }

    // The last submission. The arrays of the list are this object's own.

    const DrawList &getList() const { return mList; }
    const std::vector<DrawVertex> &getVertices() const { return mVertices; }
    const std::vector<std::uint32_t> &getIndices() const { return mIndices; }
    const std::vector<DrawCommand> &getCommands() const { return mCommands; }
    const FrameTarget &getTarget() const { return mTarget; }

    /// The vertices as a command draws them, one for each of its indices.
    std::vector<DrawVertex> getVertices(const DrawCommand &command) const;

    /// The place of a vertex on the target in pixels from the top left, y downward.
    void getScreenPosition(const DrawVertex &vertex, float &x, float &y) const;

    // Counts since the start.

    unsigned int getSubmitCount() const { return mSubmits; }

    /// Submissions of the same revision as the one before.
    unsigned int getSameRevisionCount() const { return mSameRevision; }
    unsigned int getCreatedTextureCount() const { return mCreated; }
    unsigned int getUpdatedTextureCount() const { return mUpdated; }
    unsigned int getDestroyedTextureCount() const { return mDestroyed; }

    /// Pixels given to `createTexture` and `updateTexture`.
    std::uint64_t getUploadedPixelCount() const { return mUploadedPixels; }

    /// Those that were not destroyed.
    const std::map<TextureId, Texture> &getTextures() const { return mTextures; }

private:
    std::map<TextureId, Texture> mTextures;
    TextureId mLastId = NO_TEXTURE;
    unsigned int mMaximumTextureSize = 4096;

    DrawList mList;
    std::vector<DrawVertex> mVertices;
    std::vector<std::uint32_t> mIndices;
    std::vector<DrawCommand> mCommands;
    FrameTarget mTarget;

    unsigned int mSubmits = 0;
    unsigned int mSameRevision = 0;
    unsigned int mCreated = 0;
    unsigned int mUpdated = 0;
    unsigned int mDestroyed = 0;
    std::uint64_t mUploadedPixels = 0;
};

} // namespace nurel::renderer
