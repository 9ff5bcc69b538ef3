#include "backends/egl/HeadlessContext.h"

#include "backends/egl/detail/Display.h"
#include "foundation/core/Exception.h"

#include <epoxy/gl.h>

#include <algorithm>

namespace nurel::egl {

HeadlessContext::HeadlessContext(unsigned int width, unsigned int height, Api api)
    : mDisplay(std::make_unique<Display>(api == Api::ES_3)) {
    glGenFramebuffers(1, &mFrameBuffer);
    glGenRenderbuffers(1, &mColor);
    glGenRenderbuffers(1, &mStencil);
    resize(width, height);
}

HeadlessContext::~HeadlessContext() = default;

void HeadlessContext::makeCurrent() {
    mDisplay->makeCurrent();
    glBindFramebuffer(GL_FRAMEBUFFER, mFrameBuffer);
}

void HeadlessContext::resize(unsigned int width, unsigned int height) {
    GLint maximum = 0;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &maximum);
    if (std::max(width, height) > static_cast<unsigned int>(maximum))
        throw ::core::IllegalStateException("Cannot draw %u x %u pixels, the driver's limit is %d", width, height,
                                            maximum);
    const auto w = static_cast<GLsizei>(std::max(width, 1u));
    const auto h = static_cast<GLsizei>(std::max(height, 1u));
    glBindFramebuffer(GL_FRAMEBUFFER, mFrameBuffer);
    glBindRenderbuffer(GL_RENDERBUFFER, mColor);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, w, h);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, mColor);
    glBindRenderbuffer(GL_RENDERBUFFER, mStencil);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, w, h); // stencil alone is not drawable everywhere
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, mStencil);
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE)
        throw ::core::IllegalStateException("Cannot make a frame buffer of %u x %u pixels", width, height);
    mWidth = width;
    mHeight = height;
}

std::vector<std::uint8_t> HeadlessContext::readPixels() {
    const std::size_t rowBytes = std::size_t{4} * mWidth;
    std::vector<std::uint8_t> rgba(rowBytes * mHeight);
    GLint bound = 0;
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &bound);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, mFrameBuffer);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    for (unsigned int row = 0; row < mHeight; ++row) // GL's rows begin at the bottom
        glReadPixels(0, static_cast<GLint>(mHeight - 1 - row), static_cast<GLsizei>(mWidth), 1, GL_RGBA,
                     GL_UNSIGNED_BYTE, rgba.data() + row * rowBytes);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(bound));
    return rgba;
}

std::string HeadlessContext::getDescription() const {
    const auto text = [](GLenum name) {
        const auto *value = reinterpret_cast<const char *>(glGetString(name));
        return std::string(value ? value : "unknown");
    };
    return text(GL_RENDERER) + ", " + text(GL_VERSION);
}

} // namespace nurel::egl
