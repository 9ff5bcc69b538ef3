#include "backends/gles/GlesBackend.h"

#include "foundation/core/Exception.h"
#include "nengine/renderer/FrameTarget.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cstddef>

namespace nurel::gles {

using renderer::Blend;
using renderer::DrawCommand;
using renderer::DrawList;
using renderer::DrawVertex;
using renderer::FrameTarget;
using renderer::StencilFunction;
using renderer::StencilOperation;
using renderer::TextureId;

namespace {

constexpr const char *HEADER_ES = "#version 300 es\nprecision highp float;\n";
constexpr const char *HEADER_DESKTOP = "#version 330 core\n";

constexpr const char *VERTEX_SHADER = R"(
uniform mat4 matrix;
in vec3 position;
in vec2 textureCoordinate;
in vec4 color;
out vec2 fragmentCoordinate;
out vec4 fragmentColor;
void main() {
    fragmentCoordinate = textureCoordinate;
    fragmentColor = color;
    gl_Position = matrix * vec4(position, 1.0);
}
)";

constexpr const char *FRAGMENT_SHADER = R"(
uniform sampler2D image;
in vec2 fragmentCoordinate;
in vec4 fragmentColor;
out vec4 pixel;
void main() {
    pixel = texture(image, fragmentCoordinate) * fragmentColor;
}
)";

GLuint compile(GLenum kind, const char *body) {
    const GLuint shader = glCreateShader(kind);
    const char *parts[] = {epoxy_is_desktop_gl() ? HEADER_DESKTOP : HEADER_ES, body};
    glShaderSource(shader, 2, parts, nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled)
        return shader;
    char log[512] = "";
    glGetShaderInfoLog(shader, sizeof log, nullptr, log);
    glDeleteShader(shader);
    throw ::core::IllegalStateException("Cannot compile a shader: %s", log);
}

GLenum getFunction(StencilFunction function) {
    return GL_NEVER + static_cast<GLenum>(function); // GL has the same eight in the same order
}

GLenum getOperation(StencilOperation operation) {
    switch (operation) {
    case StencilOperation::KEEP:
        return GL_KEEP;
    case StencilOperation::ZERO:
        return GL_ZERO;
    case StencilOperation::REPLACE:
        return GL_REPLACE;
    case StencilOperation::INCREMENT:
        return GL_INCR;
    }
    return GL_KEEP;
}

bool haveSameStencil(const DrawCommand &a, const DrawCommand &b) {
    return a.stencilTest == b.stencilTest && a.stencilFunction == b.stencilFunction &&
           a.stencilReference == b.stencilReference && a.opFail == b.opFail && a.opDepthFail == b.opDepthFail &&
           a.opPass == b.opPass;
}

void setStencil(const DrawCommand &command) {
    if (!command.stencilTest) {
        glDisable(GL_STENCIL_TEST);
        return;
    }
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(getFunction(command.stencilFunction), command.stencilReference, 0xff);
    glStencilOp(getOperation(command.opFail), getOperation(command.opDepthFail), getOperation(command.opPass));
}

/// For what follows about this texture; pixels come from memory, in rows without gaps.
void bind(TextureId texture) {
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
}

} // namespace

GlesBackend::GlesBackend() {
    const bool desktop = epoxy_is_desktop_gl();
    const int version = epoxy_gl_version();
    if (version < (desktop ? 33 : 30))
        throw ::core::IllegalStateException("OpenGL ES 3.0 or OpenGL 3.3 is needed, not OpenGL %s%d.%d",
                                            desktop ? "" : "ES ", version / 10, version % 10);
    GLint maximum = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maximum);
    mMaximumTextureSize = static_cast<unsigned int>(maximum);
    makeProgram();
    for (Buffers &buffers : mBuffers)
        makeBuffers(buffers);
    const std::uint8_t white[] = {255, 255, 255, 255};
    mWhite = createTexture(1, 1, renderer::PixelFormat::RGBA8, white);
}

GlesBackend::~GlesBackend() {
    for (const TextureId id : mTextures)
        glDeleteTextures(1, &id);
    for (const Buffers &buffers : mBuffers) {
        glDeleteVertexArrays(1, &buffers.vertexArray);
        glDeleteBuffers(1, &buffers.vertices);
        glDeleteBuffers(1, &buffers.indices);
    }
    glDeleteProgram(mProgram);
}

void GlesBackend::makeProgram() {
    const GLuint vertex = compile(GL_VERTEX_SHADER, VERTEX_SHADER);
    const GLuint fragment = compile(GL_FRAGMENT_SHADER, FRAGMENT_SHADER);
    mProgram = glCreateProgram();
    glAttachShader(mProgram, vertex);
    glAttachShader(mProgram, fragment);
    glBindAttribLocation(mProgram, 0, "position");
    glBindAttribLocation(mProgram, 1, "textureCoordinate");
    glBindAttribLocation(mProgram, 2, "color");
    glLinkProgram(mProgram);
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    GLint linked = GL_FALSE;
    glGetProgramiv(mProgram, GL_LINK_STATUS, &linked);
    if (!linked) {
        glDeleteProgram(mProgram);
        throw ::core::IllegalStateException("Cannot link the shaders");
    }
    mMatrix = glGetUniformLocation(mProgram, "matrix"); // the sampler's unit is 0 from the start
}

void GlesBackend::makeBuffers(Buffers &buffers) {
    const auto at = [](std::size_t offset) { return reinterpret_cast<const void *>(offset); };
    glGenVertexArrays(1, &buffers.vertexArray);
    glGenBuffers(1, &buffers.vertices);
    glGenBuffers(1, &buffers.indices);
    glBindVertexArray(buffers.vertexArray);
    glBindBuffer(GL_ARRAY_BUFFER, buffers.vertices);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers.indices);
    for (GLuint attribute = 0; attribute < 3; ++attribute)
        glEnableVertexAttribArray(attribute);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(DrawVertex), at(offsetof(DrawVertex, x)));
    glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, sizeof(DrawVertex), at(offsetof(DrawVertex, u)));
    glVertexAttribPointer(2, 4, GL_UNSIGNED_BYTE, GL_TRUE, sizeof(DrawVertex), at(offsetof(DrawVertex, rgba)));
    glBindVertexArray(0);
}

TextureId GlesBackend::createTexture(unsigned int width, unsigned int height, renderer::PixelFormat,
                                     const void *pixels) {
    if (width == 0 || height == 0 || width > mMaximumTextureSize || height > mMaximumTextureSize)
        return renderer::NO_TEXTURE;
    GLuint texture = 0;
    glGenTextures(1, &texture);
    bind(texture);
    for (int old = 0; old < 8 && glGetError() != GL_NO_ERROR; ++old) {
    } // the question below is about this texture alone
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, pixels);
    if (glGetError() != GL_NO_ERROR) {
        glDeleteTextures(1, &texture);
        return renderer::NO_TEXTURE;
    }
    if (pixels)
        glGenerateMipmap(GL_TEXTURE_2D);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, pixels ? GL_LINEAR_MIPMAP_LINEAR : GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    mTextures.insert(texture);
    setTextureRepeat(texture, false);
    return texture;
}

void GlesBackend::updateTexture(TextureId id, unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                                const void *pixels) {
    if (!mTextures.count(id))
        return;
    bind(id);
    glTexSubImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(x), static_cast<GLint>(y), static_cast<GLsizei>(width),
                    static_cast<GLsizei>(height), GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    GLint filter = GL_LINEAR;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
    if (filter != GL_LINEAR)
        glGenerateMipmap(GL_TEXTURE_2D);
}

void GlesBackend::destroyTexture(TextureId id) {
    if (mTextures.erase(id) != 0)
        glDeleteTextures(1, &id);
}

void GlesBackend::setTextureRepeat(TextureId id, bool repeat) {
    if (!mTextures.count(id))
        return;
    const GLint wrapping = repeat ? GL_REPEAT : GL_CLAMP_TO_EDGE;
    bind(id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrapping);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrapping);
}

void GlesBackend::beginFrame(const DrawList &list, const FrameTarget &target) {
    glViewport(0, 0, static_cast<GLsizei>(target.width), static_cast<GLsizei>(target.height));
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glStencilMask(0xff);
    glClearStencil(0);
    glClearColor(target.clear[0], target.clear[1], target.clear[2], target.clear[3]);
    glClear(GL_STENCIL_BUFFER_BIT | (target.clearColor ? GL_COLOR_BUFFER_BIT : 0u));

    glUseProgram(mProgram);
    glUniformMatrix4fv(mMatrix, 1, GL_FALSE, list.viewProjection); // rows of a row-vector matrix are GL's columns
    glActiveTexture(GL_TEXTURE0);
    glBindSampler(0, 0);
    glBlendEquation(GL_FUNC_ADD);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

void GlesBackend::upload(const DrawList &list) {
    const auto holds = [this](std::uint64_t revision) {
        return std::find_if(mBuffers.begin(), mBuffers.end(),
                            [revision](const Buffers &buffers) { return buffers.revision == revision; });
    };
    auto buffers = holds(list.revision);
    const bool current = buffers != mBuffers.end();
    if (!current && list.basedOn != 0)
        buffers = holds(list.basedOn);
    const bool mended = !current && buffers != mBuffers.end();
    if (buffers == mBuffers.end())
        buffers = std::min_element(mBuffers.begin(), mBuffers.end(),
                                   [](const Buffers &a, const Buffers &b) { return a.lastUse < b.lastUse; });
    buffers->revision = list.revision;
    buffers->lastUse = ++mSubmits;
    glBindVertexArray(buffers->vertexArray);
    if (current)
        return;

    glBindBuffer(GL_ARRAY_BUFFER, buffers->vertices);
    const std::size_t first = mended ? list.changedFirst * sizeof(DrawVertex) : 0;
    const std::size_t bytes = (mended ? list.changedCount : list.vertexCount) * sizeof(DrawVertex);
    if (mended && bytes != 0)
        glBufferSubData(GL_ARRAY_BUFFER, static_cast<GLintptr>(first), static_cast<GLsizeiptr>(bytes),
                        list.vertices + list.changedFirst);
    mUploadedBytes += bytes;
    if (mended)
        return;
    const std::size_t indexBytes = list.indexCount * sizeof(std::uint32_t);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(bytes), list.vertices, GL_DYNAMIC_DRAW);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indexBytes), list.indices, GL_DYNAMIC_DRAW);
    mUploadedBytes += indexBytes;
}

void GlesBackend::draw(const DrawCommand &command, const DrawCommand *previous) {
    if (!previous || previous->texture != command.texture)
        glBindTexture(GL_TEXTURE_2D, command.texture == renderer::NO_TEXTURE ? mWhite : command.texture);
    if (!previous || previous->blend != command.blend)
        (command.blend == Blend::NONE ? glDisable : glEnable)(GL_BLEND);
    if (!previous || previous->colorMask != command.colorMask) {
        const GLboolean color = (command.colorMask & 1) != 0;
        const GLboolean alpha = (command.colorMask & 2) != 0;
        glColorMask(color, color, color, alpha);
    }
    if (!previous || !haveSameStencil(*previous, command))
        setStencil(command);
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(command.indexCount), GL_UNSIGNED_INT,
                   reinterpret_cast<const void *>(command.firstIndex * sizeof(std::uint32_t)));
}

void GlesBackend::submit(const DrawList &list, const FrameTarget &target) {
    mLastFrameBuffer = target.frameBuffer;
    mLastWidth = target.width;
    mLastHeight = target.height;
    if (target.width == 0 || target.height == 0)
        return;
    GLint screen = 0;
    if (target.frameBuffer != 0) {
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &screen);
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, target.frameBuffer);
    }
    beginFrame(list, target);
    if (list.commandCount != 0) {
        upload(list);
        const DrawCommand *previous = nullptr;
        for (const DrawCommand *command = list.commands; command != list.commands + list.commandCount; ++command) {
            draw(*command, previous);
            previous = command;
        }
        glBindVertexArray(0);
    }
    if (target.frameBuffer != 0)
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(screen));
}

bool GlesBackend::readPixels(unsigned int x, unsigned int y, unsigned int width, unsigned int height, void *rgba) {
    if (x > mLastWidth || width > mLastWidth - x || y > mLastHeight || height > mLastHeight - y)
        return false;
    GLint drawn = 0;
    GLint read = 0;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &drawn);
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &read);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, mLastFrameBuffer != 0 ? mLastFrameBuffer : static_cast<GLuint>(drawn));
    glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glReadPixels(static_cast<GLint>(x), static_cast<GLint>(mLastHeight - y - height), static_cast<GLsizei>(width),
                 static_cast<GLsizei>(height), GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(read));
    auto *rows = static_cast<std::uint8_t *>(rgba);
    const std::size_t rowBytes = std::size_t{4} * width;
    for (unsigned int top = 0; top < height / 2; ++top) // GL's rows begin at the bottom
        std::swap_ranges(rows + top * rowBytes, rows + (top + 1) * rowBytes, rows + (height - 1 - top) * rowBytes);
    return true;
}

} // namespace nurel::gles
