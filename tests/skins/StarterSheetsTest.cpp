#include "Palette.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

namespace {

std::string readSheet(const char *name) {
    std::ifstream file(std::string(ASSETS "/style/") + name);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Everything behind the first block of macros, which holds the colours.
std::string getRules(const std::string &sheet) {
    return sheet.substr(sheet.find('}') + 1);
}

std::string toText(std::uint32_t rgb) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", rgb);
    return text;
}

} // namespace

TEST(StarterSheets, LightAndDarkDifferInTheirColoursAlone) {
    const std::string light = getRules(readSheet("light.css"));
    EXPECT_FALSE(light.empty());
    EXPECT_EQ(light, getRules(readSheet("dark.css")));
}

TEST(StarterSheets, TheirColoursAreThoseOfThePalette) {
    const std::regex macro(R"(\$(\w+): (#[0-9a-f]{6});)");
    for (const bool isDark : {false, true}) {
        const std::string sheet = readSheet(isDark ? "dark.css" : "light.css");
        int count = 0;
        for (std::sregex_iterator i(sheet.begin(), sheet.end(), macro); i != std::sregex_iterator(); ++i, ++count) {
            for (const drawing::PaletteEntry &entry : drawing::getPalette()) {
                if ((*i)[1] == entry.name) {
                    EXPECT_EQ((*i)[2], toText(isDark ? entry.dark : entry.light)) << entry.name;
                }
            }
            EXPECT_NO_THROW(drawing::getColor(drawing::Theme::LIGHT, (*i)[1].str()));
        }
        EXPECT_GT(count, 5);
    }
}
