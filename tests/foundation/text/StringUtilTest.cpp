#include "foundation/text/StringUtil.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <clocale>
#include <locale>
#include <string>

using text::StringUtil;

TEST(StringUtil, ParsesTheIntegerAtTheStart) {
    const struct {
        const char *text;
        int value;
    } rows[] = {{"0", 0},
                {"42", 42},
                {"+42", 42},
                {"-42", -42},
                {"  \t\n\v\f\r7", 7},
                {"12px", 12},
                {"3.9", 3},
                {"1e3", 1},
                {"0x10", 0},
                {"007", 7},
                {"", 0},
                {"px", 0},
                {"-", 0},
                {"+", 0},
                {"--5", 0},
                {"+-5", 0},
                {"- 5", 0},
                {"2147483647", INT_MAX},
                {"2147483648", INT_MAX},
                {"-2147483648", INT_MIN},
                {"-2147483649", INT_MIN},
                {"99999999999999999999999999", INT_MAX},
                {"-99999999999999999999999999", INT_MIN},
                {nullptr, 0}};
    for (const auto &row : rows)
        EXPECT_EQ(StringUtil::parseInt(row.text), row.value) << (row.text ? row.text : "null");
}

TEST(StringUtil, ParsesTheNumberAtTheStart) {
    const struct {
        const char *text;
        float value;
    } rows[] = {{"0", 0},
                {"1.5", 1.5f},
                {"+1.5", 1.5f},
                {"-1.5", -1.5f},
                {" \t 12.25px", 12.25f},
                {"50%", 50},
                {".5", 0.5f},
                {"-.5", -0.5f},
                {"5.", 5},
                {"5.px", 5},
                {"1e3", 1000},
                {"1E+3", 1000},
                {"25e-2", 0.25f},
                {"1em", 1},
                {"1e", 1},
                {"1e+", 1},
                {"1.2.3", 1.2f},
                {"1,5", 1},
                {"0x10", 0},
                {"00012", 12},
                {"0.1", 0.1f},
                {"16777217", 16777216},
                {"3.4028235e38", FLT_MAX},
                {"1e39", FLT_MAX},
                {"-1e39", -FLT_MAX},
                {"1e999999999999999999999", FLT_MAX},
                {"-1e999999999999999999999", -FLT_MAX},
                {"1e-60", 0},
                {"1e-999999999999999999999", 0},
                {"0e99999999", 0},
                {"", 0},
                {".", 0},
                {"-", 0},
                {"-.", 0},
                {"e5", 0},
                {".e5", 0},
                {"auto", 0},
                {"inf", 0},
                {"infinity", 0},
                {"nan", 0},
                {"--5", 0},
                {nullptr, 0}};
    for (const auto &row : rows)
        EXPECT_EQ(StringUtil::parseFloat(row.text), row.value) << (row.text ? row.text : "null");
}

TEST(StringUtil, ClampsNumbersThatAreLongRatherThanExponential) {
    const std::string zeros(400, '0');
    EXPECT_EQ(StringUtil::parseFloat(("1" + zeros).c_str()), FLT_MAX);
    EXPECT_EQ(StringUtil::parseFloat(("-1" + zeros + ".5").c_str()), -FLT_MAX);
    EXPECT_EQ(StringUtil::parseFloat(("0." + zeros + "1").c_str()), 0);
    EXPECT_EQ(StringUtil::parseFloat((zeros + "." + zeros).c_str()), 0);
    EXPECT_EQ(StringUtil::parseFloat(("1" + zeros + "e-400").c_str()), 1);
    EXPECT_EQ(StringUtil::parseFloat(("0." + zeros + "1e401").c_str()), 1);
    EXPECT_EQ(StringUtil::parseFloat(("0." + zeros + "1e500").c_str()), FLT_MAX);
    EXPECT_EQ(StringUtil::parseFloat(("1" + zeros + "e-500").c_str()), 0);
}

TEST(StringUtil, IsNotMovedByTheLocale) {
    class Commas : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const std::locale old = std::locale::global(std::locale(std::locale::classic(), new Commas));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where it is installed
    EXPECT_EQ(StringUtil::parseFloat("1.5"), 1.5f);
    EXPECT_EQ(StringUtil::parseFloat("1,5"), 1.0f);
    EXPECT_EQ(StringUtil::parseInt("1.500"), 1);
    std::locale::global(old);
    std::setlocale(LC_ALL, before.c_str());
}

TEST(StringUtil, ComparesWithoutCase) {
    EXPECT_EQ(StringUtil::compareIgnoreCase("", ""), 0);
    EXPECT_EQ(StringUtil::compareIgnoreCase("Scale(", "sCALE("), 0);
    EXPECT_EQ(StringUtil::compareIgnoreCase("az[AZ", "AZ[az"), 0);
    EXPECT_LT(StringUtil::compareIgnoreCase("abc", "ABD"), 0);
    EXPECT_GT(StringUtil::compareIgnoreCase("abd", "ABC"), 0);
    EXPECT_LT(StringUtil::compareIgnoreCase("ab", "ABC"), 0);
    EXPECT_GT(StringUtil::compareIgnoreCase("ABC", "ab"), 0);
    EXPECT_NE(StringUtil::compareIgnoreCase("@", "`"), 0);
    EXPECT_NE(StringUtil::compareIgnoreCase("{", "["), 0);
    EXPECT_LT(StringUtil::compareIgnoreCase("z", "\xc3\xa4"), 0);
}

TEST(StringUtil, ComparesNullLikeAnEmptyText) {
    EXPECT_EQ(StringUtil::compareIgnoreCase(nullptr, nullptr), 0);
    EXPECT_EQ(StringUtil::compareIgnoreCase(nullptr, ""), 0);
    EXPECT_LT(StringUtil::compareIgnoreCase(nullptr, "a"), 0);
    EXPECT_GT(StringUtil::compareIgnoreCase("a", nullptr), 0);
}
