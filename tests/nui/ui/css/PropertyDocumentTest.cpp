#include "nui/ui/css/PropertyEntry.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace nurel::ui::css {

TEST(PropertyDocument, TellsOfEveryName) {
    std::ifstream file(SHEETS_DOCUMENT);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    ASSERT_FALSE(text.empty()) << SHEETS_DOCUMENT;
    const std::string properties = text.substr(text.find("## Properties"));
    for (const PropertyEntry &entry : PropertyEntry::all())
        EXPECT_NE(properties.find('`' + std::string(entry.cssName) + '`'), std::string::npos) << entry.cssName;
}

} // namespace nurel::ui::css
