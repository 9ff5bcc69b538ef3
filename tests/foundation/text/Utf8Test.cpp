#include "foundation/text/Utf8.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

struct Row {
    const char *text;
    std::u32string characters;
};

/// Well-formed texts and every kind of malformed one: lone and cut sequences, overlong forms, surrogates, beyond the
/// end.
const Row ROWS[] = {{"", U""},
                    {"abc", U"abc"},
                    {"\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80z", U"\u00e4\u20ac\U0001f600z"},
                    {"\x80", U"\ufffd"},
                    {"a\xff\xfe", U"a\ufffd\ufffd"},
                    {"\xc3", U"\ufffd"},
                    {"\xe2\x82", U"\ufffd\ufffd"},
                    {"\xf0\x9f\x98", U"\ufffd\ufffd\ufffd"},
                    {"\xe2\x82z", U"\ufffd\ufffdz"},
                    {"\xc3\xe2\x82\xac", U"\ufffd\u20ac"},
                    {"\xc0\xaf", U"\ufffd\ufffd"},
                    {"\xe0\x80\xaf", U"\ufffd\ufffd\ufffd"},
                    {"\xed\xa0\x80", U"\ufffd\ufffd\ufffd"},
                    {"\xf4\x90\x80\x80", U"\ufffd\ufffd\ufffd\ufffd"},
                    {"\xf4\x8f\xbf\xbd", U"\U0010fffd"},
                    {"\xef\xbb\xbfx", U"\ufeffx"}};

/// The text in memory of exactly its size, so that a sanitizer sees a read past the terminator.
std::unique_ptr<char[]> makeTight(const std::string &text) {
    auto tight = std::make_unique<char[]>(text.size() + 1);
    std::copy_n(text.c_str(), text.size() + 1, tight.get());
    return tight;
}

} // namespace

TEST(Utf8, DecodesEachCharacterAndEachMalformedByte) {
    for (const Row &row : ROWS)
        EXPECT_EQ(text::decodeUTF8(row.text), row.characters) << testing::PrintToString(row.text);
}

TEST(Utf8, CountsCharacters) {
    for (const Row &row : ROWS)
        EXPECT_EQ(text::getUTF8Length(makeTight(row.text).get()), row.characters.size());
    EXPECT_EQ(text::getUTF8Length(nullptr), 0u);
}

TEST(Utf8, FindsTheFirstMalformedByte) {
    for (const Row &row : ROWS) {
        const std::string text = row.text;
        std::size_t bytes = 0;
        std::size_t expected = std::string::npos;
        for (std::size_t i = 0; i < row.characters.size() && expected == std::string::npos; ++i) {
            if (row.characters[i] == U'\ufffd')
                expected = bytes;
            bytes = text::getUTF8Index(text.c_str(), static_cast<unsigned>(i) + 1);
        }
        EXPECT_EQ(text::findMalformedUTF8(text), expected) << testing::PrintToString(row.text);
    }
}

TEST(Utf8, FindsTheByteOfACharacter) {
    const char *mixed = "a\xc3\xa4\xe2\x82\xac\xff\xf0\x9f\x98\x80z";
    const unsigned bytes[] = {0, 1, 3, 6, 7, 11, 12, 12};
    for (unsigned i = 0; i < 8; ++i)
        EXPECT_EQ(text::getUTF8Index(mixed, i), bytes[i]) << i;
}

TEST(Utf8, StopsAtTheTerminator) {
    EXPECT_EQ(text::getUTF8Index("abc", 4'000'000'000u), 3u);
    EXPECT_EQ(text::getUTF8Index("", 1), 0u);
    EXPECT_EQ(text::getUTF8Index(nullptr, 1), 0u);
    EXPECT_EQ(text::getUTF8Index(makeTight("ab\xe2\x82").get(), 9), 4u);
    EXPECT_EQ(text::getUTF8Index(makeTight("\xf0").get(), 1), 1u);
}

TEST(Utf8, DecodesBytesAfterATerminatorThatAreGivenByLength) {
    EXPECT_EQ(text::decodeUTF8(std::string_view("a\0b", 3)), std::u32string(U"a\0b", 3));
    EXPECT_EQ(text::decodeUTF8({}), U"");
}

TEST(Utf8, LengthIndexAndDecodingAgreeOnRandomBytes) {
    std::mt19937 random(1);
    const unsigned char alphabet[] = {'a',  0x80, 0xbf, 0xc3, 0xe2, 0x82, 0xac,
                                      0xed, 0xa0, 0xf0, 0x9f, 0x98, 0xf4, 0xff};
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 24, ' ');
        for (char &byte : bytes)
            byte = static_cast<char>(alphabet[random() % sizeof alphabet]);
        const std::unique_ptr<char[]> tight = makeTight(bytes);
        const std::u32string characters = text::decodeUTF8(bytes);
        const unsigned length = text::getUTF8Length(tight.get());
        ASSERT_EQ(length, characters.size());
        ASSERT_EQ(text::getUTF8Index(tight.get(), length), bytes.size());
        for (unsigned i = 0; i < length; ++i) {
            const unsigned from = text::getUTF8Index(tight.get(), i);
            const unsigned to = text::getUTF8Index(tight.get(), i + 1);
            ASSERT_LT(from, to);
            ASSERT_EQ(text::decodeUTF8(std::string_view(bytes).substr(from, to - from)), characters.substr(i, 1));
        }
    }
}
