#include "foundation/text/Format.h"

#include <gtest/gtest.h>

TEST(Format, TakesTextsOfAnyLength) {
    EXPECT_EQ(text::format("%s", ""), "");
    EXPECT_EQ(text::format("%d%%", 5), "5%");
    for (const std::size_t size : {255u, 256u, 70'000u}) {
        const std::string letters(size, 'a');
        EXPECT_EQ(text::format("%s|%s", letters.c_str(), "b"), letters + "|b");
    }
}

TEST(Format, OfNullIsEmpty) {
    const char *none = nullptr;
    EXPECT_EQ(text::format(none, 1), "");
}
