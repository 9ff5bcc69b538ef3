#include "backends/sdl/Window.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <SDL.h>

#include <cstdlib>
#include <string>

using namespace nurel;

namespace {

/// Why a window does not open; empty when it does.
std::string getReason() {
    try {
        const sdl::Window window({});
    } catch (const ::core::IllegalStateException &exception) {
        return exception.what();
    }
    return {};
}

} // namespace

TEST(Window, DoesNotOpenWhereNobodySeesIt) {
    for (const char *driver : {"dummy", "offscreen"}) {
        setenv("SDL_VIDEODRIVER", driver, 1);
        EXPECT_EQ(getReason(), "Cannot open a window: there is no display") << driver;
    }
    unsetenv("SDL_VIDEODRIVER");
}

TEST(Window, DoesNotOpenOnADisplayThatIsNotThere) {
    setenv("SDL_VIDEODRIVER", "x11", 1);
    setenv("DISPLAY", ":4711", 1);
    EXPECT_EQ(getReason(), "Cannot open a window: there is no display (x11 not available)");
    unsetenv("SDL_VIDEODRIVER");
}

TEST(Window, LetsInputMethodsShowWhatIsComposedUnlessTheProgramWantsTo) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    sdl::WindowConfig config;
    EXPECT_THROW(const sdl::Window window(config), ::core::IllegalStateException); // the hints come first
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_IME_INTERNAL_EDITING), "1");
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_IME_SHOW_UI), "1");
    config.showsComposition = false;
    EXPECT_THROW(const sdl::Window window(config), ::core::IllegalStateException);
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_IME_INTERNAL_EDITING), "0");
    unsetenv("SDL_VIDEODRIVER");
}
