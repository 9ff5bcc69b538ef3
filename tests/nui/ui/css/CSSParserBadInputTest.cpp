#include "foundation/logging/Logger.h"
#include "nui/ui/css/CSSLexer.h"
#include "nui/ui/css/SheetText.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using nurel::ui::css::CSSLexer;
using test::failureOf;
using test::rulesOf;

namespace {

/// Swallows the warnings that broken sheets give, and counts them.
class QuietLog : public logging::Sink {
public:
    QuietLog() : mPrevious(logging::Logger::mROOT_LOGGER.setSink(this)) {}
    ~QuietLog() override { logging::Logger::mROOT_LOGGER.setSink(mPrevious); }
    QuietLog(const QuietLog &) = delete;
    QuietLog &operator=(const QuietLog &) = delete;

    void write(logging::Level, const char *) override { ++count; }

    unsigned int count = 0;

private:
    logging::Sink *mPrevious;
};

bool isCommaOn() {
    return CSSLexer().findToken(CSSLexer::COMMA)->isEnabled();
}

struct Misplaced {
    const char *name;
    const char *sheet;
    const char *message;
};

void PrintTo(const Misplaced &misplaced, std::ostream *out) {
    *out << misplaced.name;
}

const Misplaced MISPLACED[] = {
    // among the selectors
    {"CloseFirst", "}", "Syntax error: ':' or <id> expected, '}' found. At position 1:1"},
    {"CloseAfterSelector", "a }", "Syntax error: ':' or <id> expected, '}' found. At position 1:3"},
    {"SecondClose", "a{}}", "Syntax error: ':' or <id> expected, '}' found. At position 1:4"},
    {"SemicolonFirst", "\n ;", "Syntax error: ':' or <id> expected, ';' found. At position 2:2"},
    {"SemicolonAfterRule", "a{};", "Syntax error: ':' or <id> expected, ';' found. At position 1:4"},
    {"StringFirst", "'a' {}", "Syntax error: ':' or <id> expected, '<!string!>' found. At position 1:1"},
    {"StringAfterSelector", "a \"b\" {}", "Syntax error: ':' or <id> expected, '<!string!>' found. At position 1:3"},
    {"EndAfterSelector", "a", "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 1:2"},
    {"EndAfterComma", "a,\n", "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 2:1"},
    {"EndAfterState", "a:b", "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 1:4"},
    {"ColonFirst", ":hover {}", "Syntax error: ':' or <id> expected, ':' found. At position 1:1"},
    {"ColonAlone", "\n\n  :", "Syntax error: ':' or <id> expected, ':' found. At position 3:3"},
    {"ColonBeforeMark", ":{}", "Syntax error: ':' or <id> expected, ':' found. At position 1:1"},
    {"ColonAfterComma", ", :hover {}", "Syntax error: ':' or <id> expected, ':' found. At position 1:3"},
    {"ColonAfterExtension", "@define {} :hover {}", "Syntax error: ':' or <id> expected, ':' found. At position 1:12"},
    {"ColonOfTheNextRule", "a{} :hover {}", "Syntax error: ':' or <id> expected, ':' found. At position 1:5"},
    // after the colon of a state
    {"TwoColons", "a::b {}", "Syntax error: unexpected ':'. At position 1:3"},
    {"OpenForAState", "a: {}", "Syntax error: unexpected '{'. At position 1:4"},
    {"CommaForAState", "a:, {}", "Syntax error: unexpected ','. At position 1:3"},
    {"StringForAState", "a:'b' {}", "Syntax error: unexpected '<!string!>'. At position 1:3"},
    {"AtForAState", "a:@b {}", "Syntax error: unexpected '@'. At position 1:3"},
    {"EndForAState", "a:", "Syntax error: unexpected '<!EOF!>'. At position 1:3"},
    // where a property's name stands
    {"EndInABlock", "a {", "Syntax error: unexpected '<!EOF!>'. At position 1:4"},
    {"EndAfterADeclaration", "a { width: 1px;", "Syntax error: unexpected '<!EOF!>'. At position 1:16"},
    {"OpenForAProperty", "a { {", "Syntax error: unexpected '{'. At position 1:5"},
    {"CommaForAProperty", "a { , }", "Syntax error: unexpected ','. At position 1:5"},
    {"ColonForAProperty", "a { : red; }", "Syntax error: unexpected ':'. At position 1:5"},
    {"SemicolonForAProperty", "a { ; }", "Syntax error: unexpected ';'. At position 1:5"},
    {"SecondSemicolon", "a { color: red;; }", "Syntax error: unexpected ';'. At position 1:16"},
    {"AtForAProperty", "a { @define {} }", "Syntax error: unexpected '@'. At position 1:5"},
    {"StringForAProperty", "a { 'color': red; }", "Syntax error: unexpected '<!string!>'. At position 1:5"},
    // where its colon stands
    {"WordForTheColon", "a { color red; }", "Syntax error: ':' expected, 'red' found. At position 1:11"},
    {"CloseForTheColon", "a { color }", "Syntax error: ':' expected, '}' found. At position 1:11"},
    {"SemicolonForTheColon", "a { color; }", "Syntax error: ':' expected, ';' found. At position 1:10"},
    {"CommaForTheColon", "a { color, width: 1; }", "Syntax error: ':' expected, ',' found. At position 1:10"},
    {"StringForTheColon", "a { color 'x'; }", "Syntax error: ':' expected, '<!string!>' found. At position 1:11"},
    {"EndForTheColon", "a { color", "Syntax error: ':' expected, '<!EOF!>' found. At position 1:10"},
    // in a value
    {"CloseInAValue", "a { color: red }", "Syntax error: unexpected '}'. At position 1:16"},
    {"OpenInAValue", "a { color: { }", "Syntax error: unexpected '{'. At position 1:12"},
    {"ColonInAValue", "a { color: red: }", "Syntax error: unexpected ':'. At position 1:15"},
    {"AtInAValue", "a { color: @red; }", "Syntax error: unexpected '@'. At position 1:12"},
    {"StringInAValue", "a { color: 'red'; }", "Syntax error: unexpected '<!string!>'. At position 1:12"},
    {"EndInAValue", "a { color: red", "Syntax error: unexpected '<!EOF!>'. At position 1:15"},
    // after "@"
    {"OpenForAnExtension", "@ { }", "Syntax error: unexpected '{'. At position 1:3"},
    {"StringForAnExtension", "@'define' { }", "Syntax error: unexpected '<!string!>'. At position 1:2"},
    {"AtForAnExtension", "@@ { }", "Syntax error: unexpected '@'. At position 1:2"},
    {"EndForAnExtension", "@", "Syntax error: unexpected '<!EOF!>'. At position 1:2"},
    {"WordForTheBlock", "@define x", "Syntax error: '{' expected, 'x' found. At position 1:9"},
    {"EndForTheBlock", "@define", "Syntax error: '{' expected, '<!EOF!>' found. At position 1:8"},
    {"StringForTheBlock", "@define 'x'", "Syntax error: '{' expected, '<!string!>' found. At position 1:9"},
    {"CloseForTheBlock", "@define }", "Syntax error: '{' expected, '}' found. At position 1:9"},
    // where a macro's name stands
    {"StringForAMacro", "@define { 'a': 1; }",
     "Syntax error: <id> expected, '<!string!>' found (CSSParser::parseDefine) at 1:11"},
    {"OpenForAMacro", "@define {\n{", "Syntax error: <id> expected, '{' found (CSSParser::parseDefine) at 2:1"},
    {"CommaForAMacro", "@define { a: 1;, }", "Syntax error: <id> expected, ',' found (CSSParser::parseDefine) at 1:16"},
    {"ColonForAMacro", "@define { : 1; }", "Syntax error: <id> expected, ':' found (CSSParser::parseDefine) at 1:11"},
    {"SemicolonForAMacro", "@define { ; }", "Syntax error: <id> expected, ';' found (CSSParser::parseDefine) at 1:11"},
    {"AtForAMacro", "@define { @ }", "Syntax error: <id> expected, '@' found (CSSParser::parseDefine) at 1:11"},
    {"EndForAMacro", "@define {", "Syntax error: <id> expected, '<!EOF!>' found (CSSParser::parseDefine) at 1:10"},
    {"WordForAMacrosColon", "@define { a b; }", "Syntax error: ':' expected, 'b' found. At position 1:13"},
    {"CloseForAMacrosColon", "@define { a }", "Syntax error: ':' expected, '}' found. At position 1:13"},
    {"CommaForAMacrosColon", "@define { a, b: 1; }", "Syntax error: ':' expected, ',' found. At position 1:12"},
    // in a macro's value
    {"CloseInAMacro", "@define { a: 1 }",
     "Syntax error: <id> or <string> expeted. '}' found (CSSParser::parseDefine), at 1:16"},
    {"OpenInAMacro", "@define { a: { }",
     "Syntax error: <id> or <string> expeted. '{' found (CSSParser::parseDefine), at 1:14"},
    {"ColonInAMacro", "@define { a: 1\n b: 2; }",
     "Syntax error: <id> or <string> expeted. ':' found (CSSParser::parseDefine), at 2:3"},
    {"AtInAMacro", "@define { a: @b; }",
     "Syntax error: <id> or <string> expeted. '@' found (CSSParser::parseDefine), at 1:14"},
    {"EndInAMacro", "@define { a: 'x' ",
     "Syntax error: <id> or <string> expeted. '<!EOF!>' found (CSSParser::parseDefine), at 1:18"},
    // quotes that are not closed
    {"OpenQuoteInAValue", "a { font-family: 'Arial; }", "Syntax error: unexpected '<!EOF!>'. At position 1:27"},
    {"OpenQuoteFirst", "'a { color: red; }", "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 1:19"},
};

class CSSParserMisplaced : public testing::TestWithParam<Misplaced> {};

TEST_P(CSSParserMisplaced, FailsWithItsPlace) {
    const test::LogCapture log;
    EXPECT_EQ(failureOf(GetParam().sheet), GetParam().message);
    EXPECT_TRUE(isCommaOn());
    EXPECT_EQ(rulesOf("a,b{}"), "a{} b{}");
}

INSTANTIATE_TEST_SUITE_P(Tokens, CSSParserMisplaced, testing::ValuesIn(MISPLACED),
                         [](const auto &row) { return row.param.name; });

/// Uses everything that the language has.
const char WHOLE_SHEET[] = "/* look */\n"
                           "@define { $ink: #123; gap: 8px \"12px\"; f: 'Some Family'; m: $gap; $r: 1; }\n"
                           "@media all { a { b: c; } }\n"
                           "label, a.x.y#n : hover:focus, * { color: $ink; margin: 1px $m; font-family: $f; }\n"
                           "b @define { $r: 2; } c {\n"
                           "  background: rgb($r,20,255,128) left top repeat-x pic.png; bogus: 'q' { 1;\n"
                           "  width: 50% -20px; transform: scale(1,2); overflow: hidden; z-index: -3; }\n"
                           ",, d {} e";

/// Parses what may be anything. Returns whether a sheet came of it; every other end is a LexerException with a message.
bool survives(const std::string &text) {
    const std::string failure = failureOf(text);
    EXPECT_FALSE(failure.empty());
    EXPECT_TRUE(isCommaOn()) << text;
    return failure == "none";
}

} // namespace

TEST(CSSParserBadInput, CutAtEveryByteGivesASheetOrAnException) {
    const QuietLog log;
    const std::string whole = WHOLE_SHEET;
    unsigned int sheets = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length)
        sheets += survives(whole.substr(0, length));
    for (std::size_t begin = 1; begin < whole.size(); ++begin)
        sheets += survives(whole.substr(begin));
    EXPECT_GT(sheets, 5u);
    EXPECT_LT(sheets, whole.size());
}

TEST(CSSParserBadInput, WithEveryByteChangedGivesASheetOrAnException) {
    const QuietLog log;
    const std::string whole = std::string(WHOLE_SHEET) + " {}";
    const std::string changes("\0\x01\n\t ,:;{}@'\"/*$#.()-_0aZ%\\\x7F\x80\xC3\xFF", 31);
    ASSERT_TRUE(survives(whole));
    unsigned int sheets = 0;
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const char change : changes) {
            std::string changed = whole;
            changed[place] = change;
            sheets += survives(changed);
        }
    }
    EXPECT_GT(sheets, whole.size());
    EXPECT_LT(sheets, whole.size() * changes.size());
}

TEST(CSSParserBadInput, WithEveryByteLeftOutOrTwiceGivesASheetOrAnException) {
    const QuietLog log;
    const std::string whole = std::string(WHOLE_SHEET) + " {}";
    unsigned int sheets = 0;
    for (std::size_t place = 0; place < whole.size(); ++place) {
        sheets += survives(std::string(whole).erase(place, 1));
        sheets += survives(std::string(whole).insert(place, 1, whole[place]));
    }
    EXPECT_GT(sheets, 100u);
}

TEST(CSSParserBadInput, SkipsTenThousandNestedBracesUnderAnUnknownExtension) {
    test::LogCapture log;
    const std::string open(10000, '{');
    EXPECT_EQ(rulesOf("@deep " + open + std::string(10000, '}') + " a {}"), "a{}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported extension @deep");
    EXPECT_EQ(failureOf("@deep " + open + std::string(9999, '}') + " a {}"),
              "Syntax error: ':' or <id> expected, '<!EOF!>' found. At position 1:20011");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Ignoring unsupported extension @deep");
}

TEST(CSSParserBadInput, TakesWordsOfAMegabyteEverywhere) {
    QuietLog log;
    const std::string word(1u << 20, 'w');
    EXPECT_EQ(rulesOf(word + "{}"), word + "{}");
    EXPECT_EQ(rulesOf("a:" + word + "{}"), "a{}");
    EXPECT_EQ(rulesOf("." + word + "#" + word + "{}"), "." + word + ".#" + word + "{}");
    EXPECT_EQ(log.count, 0u);
    EXPECT_EQ(rulesOf("a{" + word + ":" + word + ";}"), "a{}");
    EXPECT_EQ(log.count, 1u);
    EXPECT_EQ(rulesOf("@" + word + "{" + word + "} a{}"), "a{}");
    EXPECT_EQ(log.count, 2u);
    for (const char *name : {"color", "font", "font-family", "width", "margin", "background", "transform", "z-index",
                             "-n-anchor", "overflow", "text-align", "opacity"})
        EXPECT_EQ(failureOf("a{" + std::string(name) + ":" + word + " #" + word + " rgb(" + word + ";}"), "none");
    EXPECT_EQ(rulesOf("@define{" + word + ":" + word + ";} a{font-family:$" + word + ";}"), "a{font}");
    EXPECT_EQ(rulesOf("/*" + word + "*/a{}"), "a{}");
    EXPECT_EQ(failureOf("a{color:'" + word + "';}"), "Syntax error: unexpected '<!string!>'. At position 1:9");
    EXPECT_EQ(failureOf("a{color " + word), "Syntax error: ':' expected, '" + word + "' found. At position 1:9");
}

TEST(CSSParserBadInput, TakesAMegabyteOfEachMark) {
    QuietLog log;
    for (const char mark : std::string("{}:;@'\"/*$#.x\0\xFF", 15))
        survives(std::string(1u << 20, mark));
    EXPECT_EQ(rulesOf(std::string(1u << 20, ',') + "a{}"), "a{}");
    EXPECT_EQ(rulesOf(std::string(1u << 20, '\n') + "a{}"), "a{}");
    survives("@define{$a:1;}a{font-family:" + std::string(1u << 20, '$') + ";}");
}

TEST(CSSParserBadInput, RunsAnUnclosedCommentToTheEnd) {
    test::LogCapture log;
    EXPECT_EQ(rulesOf("a { color: red; }\n/* b { color: red; }"), "a{color}");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Comment without '*/'. At position 2:1");
    EXPECT_EQ(failureOf("a { color: /* red; }"), "Syntax error: unexpected '<!EOF!>'. At position 1:21");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Comment without '*/'. At position 1:12");
}

TEST(CSSParserBadInput, LeavesCommentsAndQuotesInsideWordsToThem) {
    EXPECT_EQ(rulesOf("a/*x*/b c'd {}"), "a/*x*/b{} c'd{}");
    EXPECT_EQ(rulesOf("a/* {} b {}"), "a/*{} b{}");
}

TEST(CSSParserBadInput, ReadsPastNullBytes) {
    EXPECT_EQ(rulesOf(std::string("a\0b{}\0c{}", 9)), "a{} b{} c{}");
}
