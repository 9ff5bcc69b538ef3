// Uses each backend as far as it goes without a display.
#include "backends/egl/HeadlessContext.h"
#include "backends/gles/GlesBackend.h"
#include "backends/sdl/Window.h"
#include "foundation/core/Exception.h"

#include <cstdio>

int main() {
    try {
        const nurel::egl::HeadlessContext context(16, 16);
        const nurel::gles::GlesBackend backend;
        const nurel::sdl::WindowConfig config;
        std::printf("gles egl sdl, window of %ux%u\n", config.width, config.height);
    } catch (const core::Exception &e) {
        std::printf("no GL: %s\n", e.what());
        return 1;
    }
    return 0;
}
