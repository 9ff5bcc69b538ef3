#include "nui/ui/css/CSSParser.h"

#include "nui/ui/css/BoxProperties.h"
#include "nui/ui/css/CSSLexer.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/css/Font.h"
#include "nui/ui/css/SheetText.h"
#include "nui/ui/css/SizeProperties.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

using nurel::math::Vector4;
using nurel::ui::css::Color;
using nurel::ui::css::CSS;
using nurel::ui::css::CSSLexer;
using nurel::ui::css::CSSParser;
using nurel::ui::css::Font;
using nurel::ui::css::Margin;
using nurel::ui::css::Property;
using nurel::ui::css::Rule;
using nurel::ui::css::Width;
using test::findProperty;
using test::parseSheetText;
using test::rulesOf;

namespace {

bool isCommaOn() {
    return CSSLexer().findToken(CSSLexer::COMMA)->isEnabled();
}

std::string statesOf(const Property &property) {
    std::string states;
    for (unsigned int i = 0; i < property.getValueCount(); ++i)
        states += static_cast<char>('0' + property.getValueState(static_cast<int>(i)));
    return states;
}

std::vector<const Rule *> rulesIn(const CSS &css) {
    std::vector<const Rule *> rules;
    for (const auto &rule : css)
        rules.push_back(rule.get());
    return rules;
}

/// Tells when it is deleted, and fails when it has been read to its end if it has to.
class WatchedStream : public nurel::stream::MemoryInputStream {
public:
    WatchedStream(const char *text, bool &deleted, bool fails = false)
        : MemoryInputStream("watched.css", std::string(text)), mDeleted(deleted), mFails(fails) {}
    ~WatchedStream() override { mDeleted = true; }

    std::size_t read(void *buffer, std::size_t size) override {
        const std::size_t count = MemoryInputStream::read(buffer, size);
        if (count == 0 && mFails)
            throw core::IOException("Cannot read file watched.css");
        return count;
    }

private:
    bool &mDeleted;
    bool mFails;
};

} // namespace

TEST(CSSParser, ReadsNothingOutOfAnEmptySheet) {
    EXPECT_EQ(rulesOf(""), "");
    EXPECT_EQ(rulesOf(" \t\r\n"), "");
    EXPECT_EQ(rulesOf("/* a { color: red; } */ /**/\n"), "");
    EXPECT_EQ(rulesOf("\xEF\xBB\xBF"), "");
    const std::unique_ptr<CSS> css(CSSParser().parse(nullptr));
    ASSERT_NE(css, nullptr);
    EXPECT_TRUE(css->empty());
}

TEST(CSSParser, ReadsARuleWithItsProperties) {
    EXPECT_EQ(rulesOf("a { color: red; width: 10px; font-size: 12px; }"), "a{font color width}");
    EXPECT_EQ(rulesOf("a{}"), "a{}");
    EXPECT_EQ(rulesOf("a{color:red;}b{width:1px;}"), "a{color} b{width}");
    EXPECT_EQ(rulesOf("\xEF\xBB\xBF"
                      "a{}"),
              "a{}");
}

TEST(CSSParser, OrdersRulesByPriorityAndThenAsTheyStand) {
    EXPECT_EQ(rulesOf("#n {} b {} .c {} a {} b:hover {}"), "b{} a{} .c.{} b:hover{} #n{}");
}

TEST(CSSParser, PartsSelectorsByWhiteSpaceAsByCommas) {
    EXPECT_EQ(rulesOf("a b { width: 10px; }"), "a{width} b{width}");
    EXPECT_EQ(rulesOf("a, b { width: 10px; }"), "a{width} b{width}");
    EXPECT_EQ(rulesOf("a,b\n\tc{}"), "a{} b{} c{}");
    EXPECT_EQ(rulesOf("a /* or */ b{}"), "a{} b{}");
}

TEST(CSSParser, LetsCommasRepeatLeadAndTrail) {
    EXPECT_EQ(rulesOf(", a {}"), "a{}");
    EXPECT_EQ(rulesOf(",,,, a ,,, b ,, {}"), "a{} b{}");
    EXPECT_EQ(rulesOf("a,{}"), "a{}");
}

TEST(CSSParser, JoinsStatesToTheSelectorBefore) {
    EXPECT_EQ(rulesOf("a:hover, b:focus:checked {}"), "a:hover{} b:focus:checked{}");
    EXPECT_EQ(rulesOf("a : hover\n:\nfocus {}"), "a:hover:focus{}");
    EXPECT_EQ(rulesOf("a.x#n:hover b{}"), "b{} a.x.#n:hover{}");
    EXPECT_EQ(rulesOf("a:hover.x {}"), "a:hover.x.{}");
}

TEST(CSSParser, JoinsAStateOverACommaToo) {
    EXPECT_EQ(rulesOf("a, :hover {}"), "a:hover{}");
    EXPECT_EQ(rulesOf("a,,,:hover {}"), "a:hover{}");
    EXPECT_EQ(rulesOf("a @define {} :hover {}"), "a:hover{}");
}

TEST(CSSParser, ParsesAndDropsABlockWithoutSelectors) {
    test::LogCapture log;
    EXPECT_EQ(rulesOf("{}"), "");
    EXPECT_EQ(rulesOf("{ color: red; bogus: 1; } a {}"), "a{}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported CSS property: bogus");
    EXPECT_EQ(rulesOf(",, { color: red; }"), "");
}

TEST(CSSParser, MakesOneRuleASelectorWithTheSameProperties) {
    const std::unique_ptr<CSS> css = parseSheetText("a, b { color: red; margin: 1px; }");
    const std::vector<const Rule *> rules = rulesIn(*css);
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(rules[0]->getSelectors().size(), 1u);
    EXPECT_EQ(rules[1]->getSelectors().size(), 1u);
    EXPECT_EQ(rules[0]->getID() + 1, rules[1]->getID());
    ASSERT_EQ(rules[0]->getProperties().size(), 2u);
    EXPECT_EQ(rules[0]->getProperties(), rules[1]->getProperties());
}

TEST(CSSParser, TellsEachRuleItsFileAndTheLineOfItsSelector) {
    nurel::stream::MemoryInputStream stream("stream", "/*\n*/ a\n:hover,\n b {\n}\n@define {\n}\n#c\n{ }");
    CSSParser parser;
    parser.setFileName("look/light.css");
    const std::unique_ptr<CSS> css(parser.parse(&stream));
    const std::vector<const Rule *> rules = rulesIn(*css);
    ASSERT_EQ(rules.size(), 3u);
    EXPECT_EQ(rules[0]->getLine(), 4) << "b";
    EXPECT_EQ(rules[1]->getLine(), 2) << "a:hover";
    EXPECT_EQ(rules[2]->getLine(), 8) << "#c";
    for (const Rule *rule : rules)
        EXPECT_STREQ(rule->getFile(), "look/light.css");
}

TEST(CSSParser, LeavesTheFileOpenUnlessItIsTold) {
    CSSParser parser;
    for (int turn = 0; turn < 2; ++turn) {
        nurel::stream::MemoryInputStream stream("stream", "a{}");
        const std::unique_ptr<CSS> css(parser.parse(&stream));
        EXPECT_STREQ((*css->begin())->getFile(), "");
        EXPECT_EQ((*css->begin())->getLine(), 1);
        parser.setFileName("x");
        parser.setFileName(nullptr);
    }
}

TEST(CSSParser, LeavesTheStreamToItsCaller) {
    bool isDeleted = false;
    {
        WatchedStream stream("a{} b{", isDeleted);
        {
            CSSParser parser;
            EXPECT_THROW(parser.parse(&stream), nurel::parser::LexerException);
        }
        EXPECT_FALSE(isDeleted);
    }
}

TEST(CSSParser, LetsTheStreamsErrorPassAndTurnsTheCommaOnAgain) {
    bool isDeleted = false;
    WatchedStream stream("a{} b{color: red", isDeleted, true);
    EXPECT_THROW(CSSParser().parse(&stream), core::IOException);
    EXPECT_TRUE(isCommaOn());
    WatchedStream definition("@define { a: red", isDeleted, true);
    EXPECT_THROW(CSSParser().parse(&definition), core::IOException);
    EXPECT_TRUE(isCommaOn());
}

TEST(CSSParser, TurnsTheCommaOnBeforeItReads) {
    CSSLexer().findToken(CSSLexer::COMMA)->setEnabled(false);
    EXPECT_EQ(rulesOf("a,b{}"), "a{} b{}");
    EXPECT_TRUE(isCommaOn());
}

TEST(CSSParser, ReadsAnotherSheetAfterOneThatFailed) {
    CSSParser parser;
    nurel::stream::MemoryInputStream bad("bad", "@define { a: 1px; } a { width: $a }");
    EXPECT_THROW(parser.parse(&bad), nurel::parser::LexerException);
    nurel::stream::MemoryInputStream good("good", "a, b { font-family: $a; }");
    const std::unique_ptr<CSS> css(parser.parse(&good));
    EXPECT_EQ(test::describeSheet(*css), "a{font} b{font}");
    const auto &property = (*css->begin())->getProperties().begin()->second;
    EXPECT_EQ(static_cast<const Font &>(*property).getFamily(), "$a") << "macros live for one sheet";
}

TEST(CSSParser, WritesTheNamesOfOneKindIntoOneProperty) {
    const auto css = parseSheetText("a { margin: 1px 2px; margin-left: 5px; width: 3px; margin-bottom: 4px; }");
    const auto *margin = findProperty<Margin>(*css, Property::MARGIN);
    ASSERT_NE(margin, nullptr);
    EXPECT_EQ(margin->getBox(), Vector4(1, 2, 4, 5));
    EXPECT_EQ(test::describeSheet(*css), "a{width margin}");
}

TEST(CSSParser, StartsEachBlockWithNewProperties) {
    const auto css = parseSheetText("a { margin: 1px; } a { margin-left: 5px; }");
    const std::vector<const Rule *> rules = rulesIn(*css);
    ASSERT_EQ(rules.size(), 2u);
    const auto &margin = static_cast<const Margin &>(*rules[1]->getProperties().begin()->second);
    EXPECT_EQ(margin.getBox(), Vector4(0, 0, 0, 5));
}

TEST(CSSParser, MarksTheValuesThatWereTaken) {
    const auto stateOf = [](const std::string &declaration, Property::Name name) {
        const auto css = parseSheetText("a{" + declaration + "}");
        const auto *property = findProperty<Property>(*css, name);
        return property ? statesOf(*property) : "none";
    };
    EXPECT_EQ(stateOf("width: 1px;", Property::WIDTH), "20");
    EXPECT_EQ(stateOf("width: 1px 50%;", Property::WIDTH), "22");
    EXPECT_EQ(stateOf("width: ;", Property::WIDTH), "00");
    EXPECT_EQ(stateOf("font-family: Sans;", Property::FONT), "02");
    EXPECT_EQ(stateOf("color: bogus;", Property::COLOR), "0");
    EXPECT_EQ(stateOf("color: bogus red;", Property::COLOR), "2");
    EXPECT_EQ(stateOf("border-radius: 50% 3px;", Property::BORDER_RADIUS), "0202")
        << "a word that is refused moves on, and the second one is for two sides";
}

TEST(CSSParser, SaysNothingOfValuesThatAreRefused) {
    const test::LogCapture log;
    const auto css = parseSheetText("a { color: nonsense; overflow: sideways; z-index: abc; width: 1px 2px 3px 4px; }");
    EXPECT_EQ(test::describeSheet(*css), "a{color width overflow z-index}");
    EXPECT_EQ(findProperty<Color>(*css, Property::COLOR)->getColor(), Vector4(1, 1, 1, -1))
        << "what was written before a word is refused stays";
    EXPECT_EQ(findProperty<Width>(*css, Property::WIDTH)->getSizeAbsolute(), 2);
}

TEST(CSSParser, ReadsABracketWithCommasAsOneWord) {
    const auto whole = parseSheetText("a { color: rgb(255,0,255); }");
    EXPECT_EQ(findProperty<Color>(*whole, Property::COLOR)->getColor(), Vector4(1, 0, 1, -1));
    const auto cut = parseSheetText("a { color: rgb(255, 0, 255); }");
    const auto *color = findProperty<Color>(*cut, Property::COLOR);
    ASSERT_NE(color, nullptr);
    EXPECT_FALSE(color->isValueSet(0));
    EXPECT_NE(color->getColor(), Vector4(1, 0, 1, -1));
}

TEST(CSSParser, WarnsOfAnUnknownPropertyAndSkipsToItsSemicolon) {
    test::LogCapture log;
    EXPECT_EQ(rulesOf("a { bogus: 'x' { } : @ , ; width: 1px; COLOR: red; }"), "a{width}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported CSS property: bogus");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported CSS property: COLOR");
}

TEST(CSSParser, SkipsAnUnknownPropertyWithoutSemicolonOverTheBlock) {
    test::LogCapture log;
    EXPECT_EQ(rulesOf("a { bogus } b { color: red; width: 1px; }"), "a{width}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported CSS property: bogus");
}

TEST(CSSParser, WarnsOfAnUnknownExtensionAndSkipsItsBlock) {
    test::LogCapture log;
    EXPECT_EQ(rulesOf("@media screen { a { width: 1px; } b { } } c { }"), "c{}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported extension @media");
    EXPECT_EQ(rulesOf("a @Define { $x: 1px; } b {}"), "a{} b{}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported extension @Define");
    EXPECT_EQ(rulesOf("@import 'x'; a { width: 1px; } b { }"), "b{}") << "without a block the next one goes";
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported extension @import");
}

TEST(CSSParser, GoesOnWithTheSelectorsAfterAnExtension) {
    EXPECT_EQ(rulesOf("@define {} a {}"), "a{}");
    EXPECT_EQ(rulesOf("a @define {} b, @define {} , c {}"), "a{} b{} c{}");
    EXPECT_EQ(rulesOf("@define {} @define {} {}"), "");
}

TEST(CSSParser, FailsForASheetThatEndsWithAnExtension) {
    test::LogCapture log;
    EXPECT_EQ(test::failureOf("@define { a: 1px; }"),
              "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 1:20");
    EXPECT_EQ(test::failureOf("a {}\n@media { a {} } "),
              "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 2:17");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported extension @media");
    EXPECT_EQ(test::failureOf("@define { a: 1px; } a {}"), "none");
}

TEST(CSSParser, NeedsASemicolonBehindTheLastDeclaration) {
    EXPECT_EQ(test::failureOf("a { color: red }"), "Syntax error: unexpected '}'. At position 1:16");
    EXPECT_EQ(test::failureOf("a { color: red; }"), "none");
}

TEST(CSSParser, TakesNoStringInADeclaration) {
    EXPECT_EQ(test::failureOf("a { font-family: \"Arial\"; }"),
              "Syntax error: unexpected '<!string!>'. At position 1:18");
}
