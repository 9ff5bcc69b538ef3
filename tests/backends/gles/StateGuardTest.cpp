#include "GlFixture.h"

#include "backends/gles/StateGuard.h"

#include <epoxy/gl.h>

#include <map>

using namespace nurel;
using namespace test;

namespace {

class StateGuardTest : public GlFixture {};

/// All that a guard keeps, and the texture of another unit.
std::map<GLenum, std::vector<GLint>> readState() {
    std::map<GLenum, std::vector<GLint>> state;
    for (const GLenum name : {GL_DRAW_FRAMEBUFFER_BINDING,
                              GL_READ_FRAMEBUFFER_BINDING,
                              GL_CURRENT_PROGRAM,
                              GL_VERTEX_ARRAY_BINDING,
                              GL_ARRAY_BUFFER_BINDING,
                              GL_PIXEL_UNPACK_BUFFER_BINDING,
                              GL_PIXEL_PACK_BUFFER_BINDING,
                              GL_ACTIVE_TEXTURE,
                              GL_TEXTURE_BINDING_2D,
                              GL_SAMPLER_BINDING,
                              GL_UNPACK_ALIGNMENT,
                              GL_UNPACK_ROW_LENGTH,
                              GL_UNPACK_SKIP_ROWS,
                              GL_UNPACK_SKIP_PIXELS,
                              GL_PACK_ALIGNMENT,
                              GL_PACK_ROW_LENGTH,
                              GL_PACK_SKIP_ROWS,
                              GL_PACK_SKIP_PIXELS,
                              GL_BLEND_SRC_RGB,
                              GL_BLEND_DST_RGB,
                              GL_BLEND_SRC_ALPHA,
                              GL_BLEND_DST_ALPHA,
                              GL_BLEND_EQUATION_RGB,
                              GL_BLEND_EQUATION_ALPHA,
                              GL_BLEND,
                              GL_SCISSOR_TEST,
                              GL_DEPTH_TEST,
                              GL_CULL_FACE,
                              GL_STENCIL_TEST,
                              GL_STENCIL_FUNC,
                              GL_STENCIL_REF,
                              GL_STENCIL_VALUE_MASK,
                              GL_STENCIL_WRITEMASK,
                              GL_STENCIL_FAIL,
                              GL_STENCIL_PASS_DEPTH_FAIL,
                              GL_STENCIL_PASS_DEPTH_PASS,
                              GL_STENCIL_BACK_FUNC,
                              GL_STENCIL_BACK_REF,
                              GL_STENCIL_BACK_VALUE_MASK,
                              GL_STENCIL_BACK_WRITEMASK,
                              GL_STENCIL_BACK_FAIL,
                              GL_STENCIL_BACK_PASS_DEPTH_FAIL,
                              GL_STENCIL_BACK_PASS_DEPTH_PASS,
                              GL_VIEWPORT,
                              GL_COLOR_CLEAR_VALUE,
                              GL_COLOR_WRITEMASK,
                              GL_STENCIL_CLEAR_VALUE}) {
        std::vector<GLint> values(4);
        glGetIntegerv(name, values.data());
        state[name] = values;
    }
    return state;
}

/// Nothing as a new context has it.
void disturbState(GLuint buffer, GLuint vertexArray, GLuint texture, GLuint sampler) {
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    glBindSampler(0, sampler);
    glActiveTexture(GL_TEXTURE2);
    glBindVertexArray(vertexArray);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, buffer);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
    for (const GLenum name : {GL_UNPACK_ALIGNMENT, GL_PACK_ALIGNMENT})
        glPixelStorei(name, 2);
    for (const GLenum name : {GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS, GL_PACK_ROW_LENGTH,
                              GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS})
        glPixelStorei(name, 3);
    for (const GLenum name : {GL_BLEND, GL_SCISSOR_TEST, GL_DEPTH_TEST, GL_CULL_FACE, GL_STENCIL_TEST})
        glEnable(name);
    glBlendFuncSeparate(GL_ZERO, GL_ONE, GL_SRC_ALPHA, GL_DST_ALPHA);
    glBlendEquationSeparate(GL_FUNC_SUBTRACT, GL_MAX);
    glStencilFuncSeparate(GL_FRONT, GL_LESS, 3, 0x0f);
    glStencilFuncSeparate(GL_BACK, GL_GREATER, 4, 0xf0);
    glStencilOpSeparate(GL_FRONT, GL_INCR, GL_DECR, GL_ZERO);
    glStencilOpSeparate(GL_BACK, GL_REPLACE, GL_INVERT, GL_INCR);
    glStencilMaskSeparate(GL_FRONT, 0x33);
    glStencilMaskSeparate(GL_BACK, 0x55);
    glViewport(1, 2, 3, 4);
    glClearColor(0, 1, 0, 1);
    glClearStencil(9);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
}

} // namespace

TEST_F(StateGuardTest, SetsBackAllThatTheBackendChanges) {
    GLuint buffer = 0, vertexArray = 0, sampler = 0;
    glGenBuffers(1, &buffer);
    glGenVertexArrays(1, &vertexArray);
    glGenSamplers(1, &sampler);
    const auto texture = makeTexture(2, 2, {});
    gles::GlesBackend other;
    other.submit(canvas.getList(), target); // leaves a program behind
    disturbState(buffer, vertexArray, texture, sampler);
    const auto before = readState();
    {
        const gles::StateGuard guard;
        canvas.state.texture = makeTexture(2, 2, {RED, GREEN, BLUE, WHITE});
        canvas.state.stencilTest = true;
        canvas.state.colorMask = 1;
        canvas.addRectangle(0, 0, 2, 2, WHITE);
        backend.submit(canvas.getList(), target);
        Color pixel;
        ASSERT_TRUE(backend.readPixels(1, 1, 1, 1, pixel.data()));
        EXPECT_EQ(pixel, WHITE);
        EXPECT_NE(readState(), before);
    }
    for (const auto &[name, values] : readState())
        EXPECT_EQ(values, before.at(name)) << "state 0x" << std::hex << name;
    glActiveTexture(GL_TEXTURE0);
    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(bound, static_cast<GLint>(texture));
    glGetIntegerv(GL_SAMPLER_BINDING, &bound);
    EXPECT_EQ(bound, static_cast<GLint>(sampler));

    glDeleteBuffers(1, &buffer);
    glDeleteVertexArrays(1, &vertexArray);
    glDeleteSamplers(1, &sampler);
    for (const GLenum name : {GL_BLEND, GL_SCISSOR_TEST, GL_DEPTH_TEST, GL_CULL_FACE})
        glDisable(name);
    for (const GLenum name : {GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS})
        glPixelStorei(name, 0);
}
