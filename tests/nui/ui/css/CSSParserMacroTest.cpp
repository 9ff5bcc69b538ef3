#include "nui/ui/css/BoxProperties.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/css/Font.h"
#include "nui/ui/css/SheetText.h"
#include "nui/ui/css/SizeProperties.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <random>

using nurel::math::Vector4;
using nurel::ui::css::Color;
using nurel::ui::css::Font;
using nurel::ui::css::Margin;
using nurel::ui::css::Property;
using nurel::ui::css::Width;
using test::failureOf;
using test::findProperty;
using test::parseSheetText;

namespace {

constexpr std::size_t MEGABYTE = std::size_t{1} << 20;

/// What becomes of a one-word value under the definitions, seen by a property that takes its first text as it is.
std::string expand(const std::string &definitions, const std::string &value) {
    const auto css = parseSheetText("@define {" + definitions + "} a { font-family: " + value + "; }");
    const auto *font = findProperty<Font>(*css, Property::FONT);
    return font ? font->getFamily() : "no font";
}

struct Expansion {
    const char *name;
    const char *definitions;
    const char *value;
    const char *expected;
};

void PrintTo(const Expansion &expansion, std::ostream *out) {
    *out << expansion.name;
}

const Expansion EXPANSIONS[] = {
    {"Alone", "$a: 1;", "$a", "1"},
    {"DefinedWithoutSign", "a: 1;", "$a", "1"},
    {"WithoutSignInTheValue", "$a: 1;", "a", "a"},
    {"Unknown", "$a: 1;", "$b", "$b"},
    {"SeveralWords", "$a: 1 2   3;", "$a", "1 2 3"},
    {"StringContent", "$a: \"Arial  Bold\";", "$a", "Arial  Bold"},
    {"StringsAndWords", "$a: 'x y' z \"\" 'w';", "$a", "x y z  w"},
    {"EmptyValue", "$a: ;", "1$a-", "1-"},
    {"LaterDefinitionCounts", "$a: 1; a: 2;", "$a", "2"},
    {"CommaInTheDefinition", "$a: 1,2 , 3;", "$a", "1,2 , 3"},
    {"InBrackets", "$r: 1; $g: 2; $b: 3;", "rgb($r,$g,$b)", "rgb(1,2,3)"},
    {"LowerLetterBefore", "$a: 1;", "x$a", "x$a"},
    {"LettersAtTheEndsBefore", "$a: 1;", "z$a", "z$a"},
    {"UpperLetterBefore", "$a: 1;", "Z$a", "Z$a"},
    {"FirstUpperLetterBefore", "$a: 1;", "A$a", "A$a"},
    {"FirstLowerLetterBefore", "$a: 1;", "a$a", "a$a"},
    {"DigitBefore", "$a: 1;", "9$a", "91"},
    {"UnderscoreBefore", "$a: 1;", "_$a", "_1"},
    {"MarkBefore", "$a: 1;", "-$a", "-1"},
    {"SignBefore", "$a: 1;", "$$a", "$1"},
    {"ByteAboveAsciiBefore", "$a: 1;", "\xC3\xA9$a",
     "\xC3\xA9"
     "1"},
    {"SpaceBefore", "$a: 1; $s: x $a;", "$s", "x 1"},
    {"LowerLetterBehind", "$a: 1;", "$ab", "$ab"},
    {"UpperLetterBehind", "$a: 1;", "$aZ", "$aZ"},
    {"DigitBehind", "$a: 1;", "$a0", "$a0"},
    {"UnderscoreBehind", "$a: 1;", "$a_", "$a_"},
    {"MarkBehind", "$a: 1;", "$a-", "1-"},
    {"BracketBehind", "$a: 1;", "$a)", "1)"},
    {"SignBehind", "$a: 1;", "$a$b", "1$b"},
    {"ByteAboveAsciiBehind", "$a: 1;", "$a\xC3\xA9", "1\xC3\xA9"},
    {"SpaceBehind", "$a: 1; $s: $a x;", "$s", "1 x"},
    {"Twice", "$a: 1;", "$a$a", "11"},
    {"ManyTimes", "$a: 1;", "$a.$a.$a.$a", "1.1.1.1"},
    {"FirstPlaceHidesTheNext", "$a: 1;", "$ab$a", "$ab$a"},
    {"FirstPlaceHidesTheNextUntilItGoes", "$a: 1; $ab: 2;", "$ab$a", "21"},
    {"LetterHidesTheNext", "$a: 1;", "x$a,$a", "x$a,$a"},
    {"LetterOfANameBefore", "$a: 1; $b: 2;", "$b$a", "21"},
    {"OtherMacroMakesALetterBefore", "$a: 1; $b: x;", "$b$a", "x$a"},
    {"OtherMacroMakesALetterBeforeInTime", "$b: 1; $a: x;", "$a$b", "x$b"},
    {"InOrderOfNames", "$b: $a; $a: 1;", "$b", "1"},
    {"AgainstTheOrderOfNames", "$a: $b; $b: 1;", "$a", "1"},
    {"Chain", "$a: $b; $b: $c; $c: $d; $d: 1;", "$a", "1"},
    {"ChainBackwards", "$d: $c; $c: $b; $b: $a; $a: 1;", "$d", "1"},
    {"NameMadeByReplacing", "$a: $; $b: 1;", "$a.$b", "$.1"},
    {"NamePutTogether", "$a: 9$; $9$b: 1;", "$a", "9$"},
    {"ShorterNameFirst", "$a-b: 2; $a: 1;", "$a-b", "1-b"},
    {"SignInsideAName", "a$b: 1;", "$a$b", "1"},
    {"OnlyASign", "$a: 1;", "$", "$"},
    {"NestedWordsOfAWord", "$size: 12; $name: Sans; $font: $name $size;", "$font", "Sans 12"},
};

class CSSParserMacros : public testing::TestWithParam<Expansion> {};

TEST_P(CSSParserMacros, AreReplaced) {
    EXPECT_EQ(expand(GetParam().definitions, GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, CSSParserMacros, testing::ValuesIn(EXPANSIONS),
                         [](const auto &row) { return row.param.name; });

bool isLetterOf(char character) {
    return std::isalpha(static_cast<unsigned char>(character)) != 0;
}

/// Every name looked for in turn; "endless" past the limit.
std::string expandPlainly(const std::map<std::string, std::string> &macros, std::string text) {
    unsigned int total = 0;
    for (bool isReplaced = true; isReplaced;) {
        isReplaced = false;
        for (const auto &[name, value] : macros) {
            const std::size_t place = text.find(name);
            if (place == std::string::npos || (place > 0 && isLetterOf(text[place - 1])))
                continue;
            const std::size_t end = place + name.size();
            if (end < text.size() && (std::isalnum(static_cast<unsigned char>(text[end])) || text[end] == '_'))
                continue;
            text.replace(place, name.size(), value);
            isReplaced = true;
            if (++total > 10000 || text.size() > MEGABYTE)
                return "endless";
        }
    }
    return text;
}

std::string expandOrFail(const std::string &definitions, const std::string &value) {
    try {
        return expand(definitions, value);
    } catch (const nurel::parser::LexerException &) {
        return "endless";
    }
}

class RandomWords {
public:
    std::string make(const char *characters, unsigned int longest) {
        const std::string from = characters;
        std::string word(1 + mRandom() % longest, ' ');
        for (char &character : word)
            character = from[mRandom() % from.size()];
        return word;
    }
    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(mRandom() % limit); }

private:
    std::mt19937 mRandom{20};
};

/// A sheet that uses the value in line 2 at column 4.
std::string endlessSheet(const std::string &definitions, const std::string &value) {
    return "@define {" + definitions + "} a { font-family:\n   " + value + "; }";
}

} // namespace

TEST(CSSParserMacro, AreReplacedAsIfEveryNameWereLookedForInTurn) {
    RandomWords random;
    unsigned int replaced = 0;
    unsigned int endless = 0;
    for (int turn = 0; turn < 3000; ++turn) {
        std::map<std::string, std::string> macros;
        std::string definitions;
        for (unsigned int count = 1 + random.below(12); count > 0; --count) {
            const std::string name = "$" + random.make("ab$-1", 4);
            const std::string value = random.below(2) ? random.make("ab-1", 3) : random.make("ab$-1", 4);
            macros[name] = value;
            definitions.append(name).append(": ").append(value).append("; ");
        }
        const std::string value = random.make("ab$$$-1_", 14);
        const std::string expected = expandPlainly(macros, value);
        ASSERT_EQ(expandOrFail(definitions, value), expected) << definitions << "for " << value;
        replaced += expected != value;
        endless += expected == "endless";
    }
    EXPECT_GT(replaced, 500u);
    EXPECT_GT(endless, 3u);
    EXPECT_LT(endless, replaced / 2);
}

TEST(CSSParserMacro, LiveInSeveralBlocksOfOneSheet) {
    const auto css = parseSheetText("@define { $a: 1px; } @define { $a: 2px; } a { width: $a; }");
    EXPECT_EQ(findProperty<Width>(*css, Property::WIDTH)->getSizeAbsolute(), 2);
}

TEST(CSSParserMacro, CountAsTheyStandWhereAValueIsRead) {
    const auto css = parseSheetText("@define { b: $a; a: 1px; } a { width: $b; } @define { a: 2px; } b { width: $b; }");
    ASSERT_EQ(css->size(), 2u);
    float sizes[2] = {};
    std::size_t count = 0;
    for (const auto &rule : *css)
        sizes[count++] = static_cast<const Width &>(*rule->getProperties().begin()->second).getSizeAbsolute();
    EXPECT_EQ(sizes[0], 1);
    EXPECT_EQ(sizes[1], 2);
}

TEST(CSSParserMacro, ReplaceNothingInSelectorsAndPropertyNames) {
    test::LogCapture log;
    EXPECT_EQ(test::rulesOf("@define { a: b; c: width; } $a { $c: 1px; }"), "$a{}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported CSS property: $c");
}

TEST(CSSParserMacro, WithoutANameAreWarnedOf) {
    test::LogCapture log;
    EXPECT_EQ(expand("$: 1px 'x'; $a: 2;", "$a"), "2");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unnamed macro: $: 1px x");
    EXPECT_EQ(expand("$:;", "$"), "$");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unnamed macro: $: ");
}

TEST(CSSParserMacro, LetAFamilyHaveASpace) {
    EXPECT_EQ(expand("f: \"Arial Bold\";", "$f"), "Arial Bold");
    const auto css = parseSheetText("@define { f: 'Arial Bold'; } a { font-family: $f; }");
    EXPECT_TRUE(findProperty<Font>(*css, Property::FONT)->isValueSet(1));
}

TEST(CSSParserMacro, HandEachWordOverWithAllThatFollows) {
    const auto boxes = parseSheetText("@define { m: 1px 2px 3px 4px 5px; } a { margin: $m; }");
    EXPECT_EQ(findProperty<Margin>(*boxes, Property::MARGIN)->getBox(), Vector4(1, 2, 3, 4));
    // the first word goes with the "px" of the second and is no percent value
    const auto sizes = parseSheetText("@define { w: 50% 10px; } a { width: $w; }");
    EXPECT_EQ(findProperty<Width>(*sizes, Property::WIDTH)->getSizeAbsolute(), 10);
    EXPECT_EQ(findProperty<Width>(*sizes, Property::WIDTH)->getSizeRelative(), 0);
    EXPECT_TRUE(findProperty<Width>(*sizes, Property::WIDTH)->isValueSet(1));
    // "red blue" is no colour, and what is refused ends the value
    const auto colors = parseSheetText("@define { c: red blue; } a { color: $c; }");
    EXPECT_EQ(findProperty<Color>(*colors, Property::COLOR)->getColor(), Vector4(1, 1, 1, -1));
    EXPECT_FALSE(findProperty<Color>(*colors, Property::COLOR)->isValueSet(0));
}

TEST(CSSParserMacro, GoOnAtTheNextIndexAfterPlainWords) {
    const auto css = parseSheetText("@define { m: 2px 3px; } a { margin: 1px $m 4px; }");
    EXPECT_EQ(findProperty<Margin>(*css, Property::MARGIN)->getBox(), Vector4(1, 2, 3, 4));
}

TEST(CSSParserMacro, MaySpaceTheirWordsOut) {
    const auto css = parseSheetText("@define { m: '1px  2px '; } a { margin: $m; }");
    const auto *margin = findProperty<Margin>(*css, Property::MARGIN);
    // the second word is the empty one between the two spaces, with what follows it
    EXPECT_EQ(margin->getBox(), Vector4(1, 2, 2, 2));
}

TEST(CSSParserMacro, ThatNameThemselvesFail) {
    EXPECT_EQ(failureOf(endlessSheet("$a: $a;", "$a")),
              "Macros without end: '$a' after 10000 replacements. At position 2:4");
    EXPECT_EQ(failureOf(endlessSheet("$a: 1 $a;", "$a")),
              "Macros without end: '$a' after 10000 replacements. At position 2:4");
    EXPECT_EQ(failureOf(endlessSheet("$a: $a $a;", "1,$a")),
              "Macros without end: '$a' after 10000 replacements. At position 2:4");
}

TEST(CSSParserMacro, ThatNameEachOtherInARingFail) {
    EXPECT_EQ(failureOf(endlessSheet("$a: $b; $b: $c; $c: $a;", "$b")),
              "Macros without end: '$c' after 10000 replacements. At position 2:4");
}

TEST(CSSParserMacro, ThatNameEachOtherManyTimesFailSoon) {
    const auto list = [](const std::string &word, unsigned int count) {
        std::string text = "\"";
        for (unsigned int i = 0; i < count; ++i)
            text += word + " ";
        return text + "\"; ";
    };
    EXPECT_EQ(
        failureOf(endlessSheet("$a: " + list("$a", 20) + "$b: " + list("$c", 30) + "$c: " + list("$b", 30), "$b")),
        "Macros without end: '$b' after 10000 replacements. At position 2:4");
    std::string definitions = "$c: " + list("$b1x", 25);
    for (int i = 0; i < 100; ++i)
        definitions.append("$b").append(std::to_string(i)).append(": '$c$b").append(std::to_string(i)).append("'; ");
    EXPECT_EQ(failureOf(endlessSheet(definitions, "$b1$b2$b3")),
              "Macros without end: '$c' after 10000 replacements. At position 2:4");
}

TEST(CSSParserMacro, ThatGrowFailAtAMegabyte) {
    EXPECT_EQ(failureOf(endlessSheet("$a: " + std::string(1000, '1') + "$a;", "$a")),
              "Macros without end: '$a' makes a value longer than 1048576 bytes. At position 2:4");
    const std::string half(MEGABYTE / 2, '1');
    EXPECT_EQ(expand("$a: " + half + ";", "$a$a"), half + half);
    EXPECT_EQ(failureOf(endlessSheet("$a: " + half + ";", "$a-$a")),
              "Macros without end: '$a' makes a value longer than 1048576 bytes. At position 2:4");
}

TEST(CSSParserMacro, ThatEndAfterTenThousandReplacementsAreTaken) {
    std::string value;
    for (int i = 0; i < 10000; ++i)
        value += "$a";
    EXPECT_EQ(expand("$a: 1;", value), std::string(10000, '1'));
    EXPECT_EQ(failureOf(endlessSheet("$a: 1;", value + "$a")),
              "Macros without end: '$a' after 10000 replacements. At position 2:4");
}

TEST(CSSParserMacro, FailWithAShortMessageForALongName) {
    const std::string name = "$" + std::string(1000, '-');
    EXPECT_EQ(failureOf(endlessSheet(name + ": " + name + ";", name)),
              "Macros without end: '" + name.substr(0, 64) + "' after 10000 replacements. At position 2:4");
}

TEST(CSSParserMacro, WithLongNamesFullOfSignsAreTaken) {
    const std::string signs(1000, '$');
    EXPECT_EQ(expand(signs + "x: 1;", signs + signs + "x"), signs + "1");
    EXPECT_EQ(expand(signs + "x: 1;", signs + signs), signs + signs);
    EXPECT_EQ(expand("$a: $b; $b: $c; $c: 1;", "$a" + signs + "$b"), "1" + signs + "1");
}

TEST(CSSParserMacro, ThatTakeTooLongToFindFail) {
    const std::string signs(1U << 18, '$');
    const char *const message = "Macros without end: a value takes too long. At position 2:4";
    EXPECT_EQ(failureOf(endlessSheet(signs + "$: 1;", signs)), message);
    EXPECT_EQ(failureOf(endlessSheet(signs + "x: 1;", signs + signs)), message);
    EXPECT_EQ(failureOf(endlessSheet("$" + signs + ": 1; $a: $b; $b: $a;", signs + "$a")), message);
    EXPECT_EQ(failureOf(endlessSheet("$a: -$b; $b: -$a;", "$a" + signs)), message);
}

TEST(CSSParserMacro, ThatAreNotUsedMayNameThemselves) {
    EXPECT_EQ(expand("$a: $a; $b: 1;", "$b"), "1");
    EXPECT_EQ(expand("$a: x$a; $b: 1;", "$a"), "x$a") << "a letter before it ends it";
}
