// The scripts of the pages that move, played by the program itself as a user would.
#include "nengine/texture/ImageFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace {

class MotionScripts : public testing::Test {
protected:
    void SetUp() override {
        const auto *info = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() / (std::string("nui-motion-") + info->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string read(const std::string &name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    /// Its pictures come into the folder.
    int play(const std::string &page) const {
        const std::string command = "cd '" + folder.string() +
                                    "' && env -u DISPLAY -u WAYLAND_DISPLAY '" GALLERY "' --headless --font '" FONT
                                    "' --page " +
                                    page + " --script '" ASSETS "/gallery/" + page + ".json' 2>err.txt </dev/null";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    nurel::texture::Image picture(const std::string &name) const {
        const std::string file = read(name);
        return nurel::texture::decodeImage(file.data(), file.size());
    }

    std::filesystem::path folder;
};

/// How many pixels of the two differ.
std::size_t countDifferences(const nurel::texture::Image &a, const nurel::texture::Image &b) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.getSize(); i += 4) {
        if (a.rgba[i] != b.rgba[i] || a.rgba[i + 1] != b.rgba[i + 1] || a.rgba[i + 2] != b.rgba[i + 2])
            ++count;
    }
    return count;
}

} // namespace

TEST_F(MotionScripts, ScreensSlideFlipFadeAndGoBack) {
    EXPECT_EQ(play("navigation"), 0);
    EXPECT_EQ(read("err.txt"), "");
    for (const std::string type :
         {"slide-left", "slide-right", "slide-up", "slide-down", "flip-across", "flip-over", "fade"}) {
        SCOPED_TRACE(type);
        for (const char *before : {"-000", "-025", "-050", "-075"}) {
            EXPECT_GT(countDifferences(picture(type + before + ".png"), picture(type + "-100.png")), 10000U) << before;
        }
    }
}

TEST_F(MotionScripts, CoversAreDraggedThrownAndCountedThrough) {
    EXPECT_EQ(play("cover-flow"), 0);
    EXPECT_EQ(read("err.txt"), "");
    EXPECT_GT(countDifferences(picture("throw-009.png"), picture("throw-018.png")), 10000U);
    EXPECT_GT(countDifferences(picture("throw-018.png"), picture("settled.png")), 10000U);
    EXPECT_EQ(picture("settled.png").width, 1280U);
}
