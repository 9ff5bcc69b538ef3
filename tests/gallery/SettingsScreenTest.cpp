// The screen of settings under the starter looks, played by the viewer as a user would.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace {

struct Result {
    int status;
    std::string errors;
};

Result runViewer(const std::string &arguments) {
    const std::filesystem::path errors = std::filesystem::temp_directory_path() / "nui-settings-screen.txt";
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY '" VIEWER "' '" ASSETS
                                "/screens/controls.ui' --font '" FONT "' --headless " +
                                arguments + " 2>'" + errors.string() + "' </dev/null";
    const int status = std::system(command.c_str());
    std::ifstream file(errors);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::filesystem::remove(errors);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}

} // namespace

TEST(SettingsScreen, HoverPressFocusChecksAndScrollingAreAsTheScriptExpects) {
    const Result result = runViewer("--style '" ASSETS "/style/light.css' --script '" ASSETS "/screens/controls.json'");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
}

TEST(SettingsScreen, IsShownUnderTheDarkLookWithoutAWarning) {
    const Result result = runViewer("--style '" ASSETS "/style/dark.css'");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
}
