#include "backends/gles/StateGuard.h"

#include <epoxy/gl.h>

namespace nurel::gles {

namespace {

constexpr GLenum UNPACK[] = {GL_UNPACK_ALIGNMENT, GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS};
constexpr GLenum PACK[] = {GL_PACK_ALIGNMENT, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS};
constexpr GLenum BLEND[] = {GL_BLEND_SRC_RGB,   GL_BLEND_DST_RGB,      GL_BLEND_SRC_ALPHA,
                            GL_BLEND_DST_ALPHA, GL_BLEND_EQUATION_RGB, GL_BLEND_EQUATION_ALPHA};
constexpr GLenum SWITCHES[] = {GL_BLEND, GL_SCISSOR_TEST, GL_DEPTH_TEST, GL_CULL_FACE, GL_STENCIL_TEST};

/// Seven values of each face, front and back, in the order of StateGuard::StencilFace.
constexpr GLenum STENCIL[][7] = {{GL_STENCIL_FUNC, GL_STENCIL_REF, GL_STENCIL_VALUE_MASK, GL_STENCIL_WRITEMASK,
                                  GL_STENCIL_FAIL, GL_STENCIL_PASS_DEPTH_FAIL, GL_STENCIL_PASS_DEPTH_PASS},
                                 {GL_STENCIL_BACK_FUNC, GL_STENCIL_BACK_REF, GL_STENCIL_BACK_VALUE_MASK,
                                  GL_STENCIL_BACK_WRITEMASK, GL_STENCIL_BACK_FAIL, GL_STENCIL_BACK_PASS_DEPTH_FAIL,
                                  GL_STENCIL_BACK_PASS_DEPTH_PASS}};

constexpr GLenum FACES[] = {GL_FRONT, GL_BACK};

GLint get(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

GLenum asEnum(GLint value) {
    return static_cast<GLenum>(value);
}

} // namespace

StateGuard::StateGuard()
    : mDrawFrameBuffer(get(GL_DRAW_FRAMEBUFFER_BINDING)), mReadFrameBuffer(get(GL_READ_FRAMEBUFFER_BINDING)),
      mProgram(get(GL_CURRENT_PROGRAM)), mVertexArray(get(GL_VERTEX_ARRAY_BINDING)),
      mArrayBuffer(get(GL_ARRAY_BUFFER_BINDING)), mUnpackBuffer(get(GL_PIXEL_UNPACK_BUFFER_BINDING)),
      mPackBuffer(get(GL_PIXEL_PACK_BUFFER_BINDING)), mActiveTexture(get(GL_ACTIVE_TEXTURE)),
      mClearStencil(get(GL_STENCIL_CLEAR_VALUE)) {
    glActiveTexture(GL_TEXTURE0);
    mTexture = get(GL_TEXTURE_BINDING_2D);
    mSampler = get(GL_SAMPLER_BINDING);
    for (std::size_t i = 0; i < mUnpack.size(); ++i)
        mUnpack[i] = get(UNPACK[i]);
    for (std::size_t i = 0; i < mPack.size(); ++i)
        mPack[i] = get(PACK[i]);
    for (std::size_t i = 0; i < mBlend.size(); ++i)
        mBlend[i] = get(BLEND[i]);
    for (std::size_t i = 0; i < mEnabled.size(); ++i)
        mEnabled[i] = glIsEnabled(SWITCHES[i]);
    for (std::size_t i = 0; i < mStencil.size(); ++i) {
        const GLenum(&names)[7] = STENCIL[i];
        mStencil[i] = {get(names[0]), get(names[1]), get(names[2]), get(names[3]),
                       get(names[4]), get(names[5]), get(names[6])};
    }
    glGetIntegerv(GL_VIEWPORT, mViewport.data());
    glGetFloatv(GL_COLOR_CLEAR_VALUE, mClearColor.data());
    glGetBooleanv(GL_COLOR_WRITEMASK, mColorMask.data());
}

StateGuard::~StateGuard() {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, asEnum(mDrawFrameBuffer));
    glBindFramebuffer(GL_READ_FRAMEBUFFER, asEnum(mReadFrameBuffer));
    glUseProgram(asEnum(mProgram));
    glBindVertexArray(asEnum(mVertexArray));
    glBindBuffer(GL_ARRAY_BUFFER, asEnum(mArrayBuffer));
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, asEnum(mUnpackBuffer));
    glBindBuffer(GL_PIXEL_PACK_BUFFER, asEnum(mPackBuffer));
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, asEnum(mTexture));
    glBindSampler(0, asEnum(mSampler));
    glActiveTexture(asEnum(mActiveTexture));
    for (std::size_t i = 0; i < mUnpack.size(); ++i)
        glPixelStorei(UNPACK[i], mUnpack[i]);
    for (std::size_t i = 0; i < mPack.size(); ++i)
        glPixelStorei(PACK[i], mPack[i]);
    for (std::size_t i = 0; i < mEnabled.size(); ++i)
        (mEnabled[i] ? glEnable : glDisable)(SWITCHES[i]);
    for (std::size_t i = 0; i < mStencil.size(); ++i) {
        const StencilFace &face = mStencil[i];
        glStencilFuncSeparate(FACES[i], asEnum(face.function), face.reference, asEnum(face.valueMask));
        glStencilMaskSeparate(FACES[i], asEnum(face.writeMask));
        glStencilOpSeparate(FACES[i], asEnum(face.fail), asEnum(face.depthFail), asEnum(face.pass));
    }
    glBlendFuncSeparate(asEnum(mBlend[0]), asEnum(mBlend[1]), asEnum(mBlend[2]), asEnum(mBlend[3]));
    glBlendEquationSeparate(asEnum(mBlend[4]), asEnum(mBlend[5]));
    glViewport(mViewport[0], mViewport[1], mViewport[2], mViewport[3]);
    glClearColor(mClearColor[0], mClearColor[1], mClearColor[2], mClearColor[3]);
    glClearStencil(mClearStencil);
    glColorMask(mColorMask[0], mColorMask[1], mColorMask[2], mColorMask[3]);
}

} // namespace nurel::gles
