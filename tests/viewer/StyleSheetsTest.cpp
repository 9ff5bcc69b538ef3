#include "StyleSheets.h"

#include "TemporaryFolder.h"

#include "foundation/core/Exception.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/Rule.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace viewer {

namespace {

using nurel::ui::css::CSS;
using nurel::ui::css::Rule;

/// "file:line selector" of every rule, in order of application.
std::vector<std::string> listRules(const CSS &sheet) {
    std::vector<std::string> rules;
    std::string selector;
    for (const auto &rule : sheet)
        rules.push_back(std::filesystem::path(rule->getFile()).filename().string() + ":" +
                        std::to_string(rule->getLine()) + " " + rule->toString(selector));
    return rules;
}

std::string refusal(StyleSheets &sheets) {
    try {
        sheets.load();
    } catch (const core::Exception &e) {
        return e.getMessage();
    }
    return "accepted";
}

} // namespace

TEST(StyleSheets, RulesOfALaterSheetStandBehindEquallySpecificOnes) {
    const TemporaryFolder folder;
    folder.write("a.css", "panel { width: 1px; }\n.x { width: 1px; }");
    folder.write("b.css", "\npanel { width: 2px; }");
    StyleSheets sheets({folder.getPath("a.css"), folder.getPath("b.css")});
    const std::vector<std::string> expected{"a.css:1 panel", "b.css:2 panel", "a.css:2 .x."};
    EXPECT_EQ(listRules(*sheets.load()), expected);
}

TEST(StyleSheets, ASheetThatIsSavedLaterKeepsItsPlace) {
    const TemporaryFolder folder;
    folder.write("a.css", "panel { width: 1px; }");
    folder.write("b.css", "panel { width: 2px; }");
    StyleSheets sheets({folder.getPath("a.css"), folder.getPath("b.css")});
    sheets.load();
    folder.write("a.css", "\npanel { width: 3px; }");
    EXPECT_EQ(listRules(*sheets.load()), (std::vector<std::string>{"a.css:2 panel", "b.css:1 panel"}));
}

TEST(StyleSheets, RulesTellTheFileAsItWasGiven) {
    const TemporaryFolder folder;
    folder.write("a.css", "panel { width: 1px; }");
    const std::string path = folder.getPath("./a.css");
    StyleSheets sheets({path});
    const std::unique_ptr<CSS> sheet = sheets.load();
    ASSERT_EQ(sheet->size(), 1U);
    EXPECT_EQ((*sheet->begin())->getFile(), path);
}

TEST(StyleSheets, AFaultIsToldWithItsPlace) {
    const TemporaryFolder folder;
    folder.write("good.css", "panel { width: 1px; }");
    folder.write("bad.css", "panel {\n  width: 1px\n}");
    const std::string path = folder.getPath("bad.css");
    StyleSheets sheets({folder.getPath("good.css"), path});
    EXPECT_EQ(refusal(sheets), path + ":3:1: Syntax error: unexpected '}'.");
}

TEST(StyleSheets, AMissingSheetIsToldByItsName) {
    StyleSheets sheets({"no such sheet.css"});
    EXPECT_EQ(refusal(sheets), "Cannot open file no such sheet.css");
}

TEST(StyleSheets, TheFoldersOfTheSheetsAreInTheirOrder) {
    const StyleSheets sheets({"b/x.css", "a.css", "/c/d/y.css"});
    EXPECT_EQ(sheets.getFolders(), (std::vector<std::string>{"b", "", "/c/d"}));
    EXPECT_FALSE(sheets.isEmpty());
    EXPECT_TRUE(StyleSheets({}).isEmpty());
}

TEST(StyleSheets, ThePlaceOfAFaultMovesToTheFront) {
    const struct {
        const char *name;
        const char *reason;
        const char *told;
    } rows[] = {
        {"position", "Oh, 'x' found. At position 3:14", "f.css:3:14: Oh, 'x' found."},
        {"comma", "found (here), at 3:1", "f.css:3:1: found (here)"},
        {"bare at", "found (here) at 12:1", "f.css:12:1: found (here)"},
        {"no place", "out of luck", "f.css: out of luck"},
        {"half a place", "out of luck: 5", "f.css: out of luck: 5"},
        {"colon last", "out of luck:", "f.css: out of luck:"},
        {"nothing", "", "f.css: "},
        {"place alone", "3:4", "f.css: 3:4"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(describeFault("f.css", row.reason), row.told) << row.name;
}

} // namespace viewer
