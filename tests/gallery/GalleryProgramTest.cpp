// The program itself, started as a user would, without a display.
#include "Page.h"

#include "nengine/texture/ImageFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class GalleryProgram : public testing::Test {
protected:
    void SetUp() override {
        const auto *info = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 (std::string("nui-gallery-") + info->name() + "-" + std::to_string(getpid()));
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string read(const std::string &name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    int run(const std::string &arguments) const {
        const std::string command = "cd '" + folder.string() + "' && env -u DISPLAY -u WAYLAND_DISPLAY '" GALLERY "' " +
                                    arguments + " >out.txt 2>err.txt </dev/null";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::filesystem::path folder;
};

std::size_t countColors(const nurel::texture::Image &image) {
    std::set<std::uint32_t> colors;
    for (std::size_t i = 0; i < image.getSize(); i += 4)
        colors.insert(static_cast<std::uint32_t>(image.rgba[i] << 16 | image.rgba[i + 1] << 8 | image.rgba[i + 2]));
    return colors.size();
}

} // namespace

TEST_F(GalleryProgram, DrawsEveryPageInBothLooksAndNamesThePictures) {
    ASSERT_EQ(run("--font '" FONT "' --size 1000x640 --png-dir pictures"), 0) << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
    std::string named;
    for (const char *look : {"light", "dark"}) {
        for (const gallery::Page &page : gallery::getPages()) {
            const std::string name = std::string("pictures/") + page.name + "-" + look + ".png";
            named += name + "\n";
            const std::string file = read(name);
            ASSERT_FALSE(file.empty()) << name;
            const nurel::texture::Image image = nurel::texture::decodeImage(file.data(), file.size());
            EXPECT_EQ(image.width, 1000U);
            EXPECT_EQ(image.height, 640U);
            EXPECT_GT(countColors(image), 100U) << name;
        }
    }
    EXPECT_EQ(read("out.txt"), named);
}

TEST_F(GalleryProgram, BadUsageAndMissingAssetsEndWithStatusTwoAndOneLine) {
    EXPECT_EQ(run("--wrong"), 2);
    EXPECT_EQ(read("err.txt"), "nui-gallery: unknown option --wrong\n");
    EXPECT_EQ(run("--png-dir x --assets nowhere"), 2);
    EXPECT_EQ(read("err.txt"), "nui-gallery: Cannot open file nowhere/gallery/gallery.ui\n");
}

TEST_F(GalleryProgram, HelpTellsTheOptions) {
    EXPECT_EQ(run("--help"), 0);
    EXPECT_EQ(read("out.txt").rfind("usage: nui-gallery", 0), 0U);
}

TEST_F(GalleryProgram, PlaysAScriptAndTellsWhatFailed) {
    std::ofstream(folder / "good.json") << R"([{"frames":3}, {"expect":{"name":"tour","visible":true}},
        {"click":"tour"}, {"frames":2}, {"expect":{"name":"tour","exists":false}}, {"png":"shown.png"}])";
    EXPECT_EQ(run("--font '" FONT "' --script good.json"), 0) << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
    EXPECT_TRUE(std::filesystem::exists(folder / "shown.png"));

    std::ofstream(folder / "wrong.json") << R"([{"frames":3}, {"expect":{"name":"tour","enabled":false}}])";
    EXPECT_EQ(run("--font '" FONT "' --script wrong.json"), 1);
    EXPECT_EQ(read("err.txt"), "wrong.json: step 1: 'tour' enabled: expected false, actual true\n");

    EXPECT_EQ(run("--script missing.json"), 2);
    EXPECT_NE(read("err.txt").find("missing.json"), std::string::npos) << read("err.txt");
}
