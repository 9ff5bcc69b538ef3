#include "Palette.h"
#include "support/LogCapture.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/NBackground.h"
#include "nui/ui/css/Property.h"
#include "nui/ui/css/Rule.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
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

std::unique_ptr<nurel::ui::css::CSS> parse(const char *name) {
    nurel::stream::FileInputStream stream((std::string(ASSETS "/style/") + name).c_str());
    return std::unique_ptr<nurel::ui::css::CSS>(nurel::ui::css::CSSParser().parse(&stream));
}

const nurel::ui::css::Property *findProperty(const nurel::ui::css::CSS &sheet, const std::string &selector,
                                             nurel::ui::css::Property::Name name) {
    for (const auto &rule : sheet) {
        std::string text;
        if (rule->getSelectors().at(0)->toString(text) == selector && rule->getProperties().count(name) == 1)
            return rule->getProperties().at(name).get();
    }
    return nullptr;
}

bool hasRule(const nurel::ui::css::CSS &sheet, const std::string &selector) {
    for (const auto &rule : sheet) {
        for (const auto &candidate : rule->getSelectors()) {
            std::string text;
            if (candidate->toString(text) == selector)
                return true;
        }
    }
    return false;
}

} // namespace

TEST(StarterSheets, AreReadWithoutAWarning) {
    test::LogCapture log;
    const auto light = parse("light.css");
    const auto dark = parse("dark.css");
    EXPECT_GT(light->size(), 150U);
    EXPECT_EQ(light->size(), dark->size());
}

TEST(StarterSheets, ChooseTheirCellsByOneMacro) {
    using nurel::ui::css::NBackground;
    using nurel::ui::css::Property;
    const auto sheet = parse("light.css");
    const auto *faces = static_cast<const NBackground *>(findProperty(*sheet, "button", Property::NBACKGROUND));
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(faces->getCurrentSkin(), 0);
    EXPECT_EQ(faces->getSkinCountU(), 4U);
    EXPECT_EQ(faces->getSkinCountV(), 4U);
    EXPECT_EQ(faces->getSkinOffset(), nurel::math::Vector2(1, 1));
    EXPECT_EQ(faces->getSkinSize(), nurel::math::Vector2(20, 20));
    EXPECT_EQ(faces->getSkinSpacing(), 2);
    const auto *hover = static_cast<const NBackground *>(findProperty(*sheet, "button:hover", Property::NBACKGROUND));
    ASSERT_NE(hover, nullptr);
    EXPECT_EQ(hover->getCurrentSkin(), 1);
    EXPECT_FALSE(hover->hasSkinCount());
}

TEST(StarterSheets, ShowEveryControlWithFocusAndDisabled) {
    const auto sheet = parse("light.css");
    for (const char *selector : {"button:focus",
                                 "button:disabled",
                                 "button#label:disabled",
                                 "button#icon:disabled",
                                 "checkbox:focus",
                                 "checkbox#check:disabled",
                                 "checkbox#label:disabled",
                                 "radio:focus",
                                 "radio#check:disabled",
                                 "radio#label:disabled",
                                 "combo:focus",
                                 "combo:disabled",
                                 "combo#label:disabled",
                                 "combo#icon:disabled",
                                 "text:focus",
                                 "text:disabled",
                                 "text#label:disabled",
                                 "text#placeholder:disabled",
                                 "listbox:focus",
                                 "listbox:disabled",
                                 "listbox#item:focus",
                                 "listbox#item:disabled",

                                 "selector:focus",
                                 "selector:disabled",
                                 "selector#item:disabled",
                                 "selector#left:disabled",
                                 "selector#right:disabled",
                                 "slider:focus",
                                 "slider:disabled",
                                 "slider#thumb:disabled",
                                 "progress:disabled",
                                 "progress#bar:disabled",
                                 "progress#label:disabled"})
        EXPECT_TRUE(hasRule(*sheet, selector)) << selector;
}

TEST(StarterSheets, LightAndDarkDifferInTheirColoursAlone) {
    const std::string light = getRules(readSheet("light.css"));
    EXPECT_FALSE(light.empty());
    EXPECT_EQ(light, getRules(readSheet("dark.css")));
}

TEST(StarterSheets, TheirColoursAreThoseOfThePalette) {
    const std::regex macro(R"(\$(\w+): (#[0-9a-f]{6})(?:ff)?;)");
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
