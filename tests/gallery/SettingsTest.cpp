#include "Settings.h"

#include "Page.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <vector>

namespace {

gallery::Settings parse(std::initializer_list<const char *> words) {
    std::vector<const char *> arguments = {"nui-gallery"};
    arguments.insert(arguments.end(), words);
    return gallery::parseSettings(static_cast<int>(arguments.size()), arguments.data());
}

std::string refuse(std::initializer_list<const char *> words) {
    try {
        parse(words);
    } catch (const core::IllegalArgumentException &e) {
        return e.getMessage();
    }
    return "nothing was raised";
}

} // namespace

TEST(GallerySettings, NothingSaidOpensAWindowOnTheFirstPage) {
    const gallery::Settings settings = parse({});
    EXPECT_EQ(settings.pngDir, "");
    EXPECT_EQ(settings.page, "");
    EXPECT_EQ(settings.width, 1280U);
    EXPECT_EQ(settings.height, 720U);
    EXPECT_FALSE(settings.dark);
    EXPECT_FALSE(settings.help);
}

TEST(GallerySettings, EveryOptionIsRead) {
    const gallery::Settings settings = parse({"--png-dir", "pictures", "--page", "form", "--dark", "--size", "800x600",
                                              "--font", "a.ttf", "--assets", "there", "--help"});
    EXPECT_EQ(settings.pngDir, "pictures");
    EXPECT_EQ(settings.page, "form");
    EXPECT_TRUE(settings.dark);
    EXPECT_EQ(settings.width, 800U);
    EXPECT_EQ(settings.height, 600U);
    EXPECT_EQ(settings.font, "a.ttf");
    EXPECT_EQ(settings.assets, "there");
    EXPECT_TRUE(settings.help);
}

TEST(GallerySettings, WhatMakesNoSenseIsRefused) {
    EXPECT_EQ(refuse({"--wrong"}), "unknown option --wrong");
    EXPECT_EQ(refuse({"screen.ui"}), "unknown option screen.ui");
    EXPECT_EQ(refuse({"--page"}), "--page wants a value");
    EXPECT_EQ(refuse({"--page", "nowhere"}), "there is no page 'nowhere'");
    for (const char *size : {"", "800", "0x600", "800x0", "800x600x2", "20000x10", "-1x5", "wide"})
        EXPECT_EQ(refuse({"--size", size}), std::string("--size wants WxH, such as 1280x720, not '") + size + "'");
}

TEST(GalleryPages, HaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (const gallery::Page &page : gallery::getPages())
        EXPECT_TRUE(names.insert(page.name).second) << page.name;
    EXPECT_GE(names.size(), 9U);
}
