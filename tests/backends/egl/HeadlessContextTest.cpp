#include "backends/egl/HeadlessContext.h"

#include "../gles/GlFixture.h"
#include "foundation/core/Exception.h"

#include <epoxy/gl.h>

#include <cstdio>
#include <cstdlib>

using namespace nurel;
using egl::HeadlessContext;

TEST(HeadlessContextDeathTest, SaysInOneSentenceThatThereIsNoEgl) {
    EXPECT_EXIT(
        {
            setenv("__EGL_VENDOR_LIBRARY_FILENAMES", "/there/is/no/such/file.json", 1);
            try {
                HeadlessContext context(8, 8);
            } catch (const ::core::IllegalStateException &exception) {
                std::fputs(exception.what(), stderr);
            }
            std::exit(2);
        },
        testing::ExitedWithCode(2), "Cannot draw off-screen: no EGL display offers OpenGL ES 3.0 \\(.+\\)$");
}

TEST(HeadlessContext, HasAFrameBufferWithStencil) {
    HeadlessContext &context = test::getContext();
    EXPECT_EQ(glCheckFramebufferStatus(GL_FRAMEBUFFER), static_cast<GLenum>(GL_FRAMEBUFFER_COMPLETE));
    GLint bits = 0;
    glGetFramebufferAttachmentParameteriv(GL_FRAMEBUFFER, GL_STENCIL_ATTACHMENT, GL_FRAMEBUFFER_ATTACHMENT_STENCIL_SIZE,
                                          &bits);
    EXPECT_EQ(bits, 8);
    glGetFramebufferAttachmentParameteriv(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_FRAMEBUFFER_ATTACHMENT_ALPHA_SIZE,
                                          &bits);
    EXPECT_EQ(bits, 8);
    const auto *version = reinterpret_cast<const char *>(glGetString(GL_VERSION));
    EXPECT_NE(context.getDescription().find(std::string(", ") + version), std::string::npos);
}

TEST(HeadlessContext, ChangesItsSize) {
    HeadlessContext &context = test::getContext();
    context.resize(5, 3);
    EXPECT_EQ(context.getWidth(), 5u);
    EXPECT_EQ(context.getHeight(), 3u);
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 2, 5, 1); // the top row
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
    const std::vector<std::uint8_t> pixels = context.readPixels();
    ASSERT_EQ(pixels.size(), 60u);
    for (std::size_t i = 0; i < 15; ++i) {
        EXPECT_EQ(pixels[i * 4], i < 5 ? 255 : 0) << i;
        EXPECT_EQ(pixels[i * 4 + 1], i < 5 ? 0 : 255) << i;
    }
}

TEST(HeadlessContext, MayHaveNoPixels) {
    HeadlessContext &context = test::getContext();
    context.resize(0, 7);
    EXPECT_EQ(context.getWidth(), 0u);
    EXPECT_TRUE(context.readPixels().empty());
}

TEST(HeadlessContext, RefusesASizeBeyondTheDriversLimit) {
    HeadlessContext &context = test::getContext();
    context.resize(4, 4);
    EXPECT_THROW(context.resize(1000000, 4), ::core::IllegalStateException);
    EXPECT_EQ(context.getWidth(), 4u);
}
