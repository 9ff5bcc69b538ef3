#include "nengine/font/detail/Characters.h"

#include <gtest/gtest.h>

#include <string>

namespace nurel::font::detail {
namespace {

struct ClusterRow {
    const char *name;
    std::u32string text;
    std::size_t length;
    bool emoji;
};

class Clusters : public testing::TestWithParam<ClusterRow> {};

TEST_P(Clusters, AreFoundAtTheStartOfATextAndToldFromPictures) {
    const ClusterRow &row = GetParam();
    EXPECT_EQ(getClusterLength(row.text), row.length);
    if (row.length > 0) {
        EXPECT_EQ(isEmoji(std::u32string_view(row.text).substr(0, row.length)), row.emoji);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Characters, Clusters,
    testing::Values(ClusterRow{"nothing", U"", 0, false}, ClusterRow{"letters", U"ab", 1, false},
                    ClusterRow{"marks", U"e\u0301\u0302x", 3, false}, ClusterRow{"markAlone", U"\u0301x", 1, false},
                    ClusterRow{"digit", U"1a", 1, false}, ClusterRow{"keycap", U"1\ufe0f\u20e3a", 3, true},
                    ClusterRow{"face", U"😀😀", 1, true}, ClusterRow{"skin", U"👍🏽x", 2, true},
                    ClusterRow{"family", U"👩\u200d👧x", 3, true}, ClusterRow{"flags", U"🇩🇪🇫🇷", 2, true},
                    ClusterRow{"textHeart", U"❤x", 1, false}, ClusterRow{"heart", U"❤\ufe0fx", 2, true},
                    ClusterRow{"textFace", U"😀\ufe0ex", 2, false},
                    ClusterRow{"endless", std::u32string(100, U'\u0301'), 16, false}),
    [](const auto &row) { return row.param.name; });

TEST(Characters, ControlsAndJoinersAreInvisible) {
    for (const char32_t c : {U'\t', U'\x01', U'\x7f', U'\u0085', U'\u00ad', U'\u200b', U'\u200d', U'\u202e', U'\u2028',
                             U'\ufe0f', U'\ufeff'})
        EXPECT_TRUE(isInvisible(c)) << static_cast<unsigned int>(c);
    for (const char32_t c : {U'a', U' ', U'\u00a0', U'\u0301', U'漢', U'\ufffd'})
        EXPECT_FALSE(isInvisible(c)) << static_cast<unsigned int>(c);
}

} // namespace
} // namespace nurel::font::detail
