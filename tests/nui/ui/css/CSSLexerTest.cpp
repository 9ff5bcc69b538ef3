#include "nui/ui/css/CSSLexer.h"

#include "nmain/stream/InputStream.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using nurel::parser::Token;
using nurel::stream::MemoryInputStream;
using nurel::ui::css::CSSLexer;

namespace {

class OpenCSSLexer : public CSSLexer {
public:
    using CSSLexer::getEndMultilineComment;
    using CSSLexer::getEndMultiLineCommentLength;
    using CSSLexer::getMultilineComment;
    using CSSLexer::isEndMultiLineComment;
    using CSSLexer::isIgnorable;
    using CSSLexer::isMultiLineComment;
    using CSSLexer::isNewLine;
    using CSSLexer::isSingleLineComment;
    using CSSLexer::isString;
    using CSSLexer::text2Token;
    using Lexer::findToken;
    using Lexer::isIdentifier;
};

std::string describe(const Token &token) {
    switch (token.getId()) {
    case CSSLexer::STRING:
        return std::string("\"") + token.getString() + "\"";
    case CSSLexer::IDENTIFIER:
        return token.getText();
    default:
        return std::string(1, '\\') + token.getText();
    }
}

/// The tokens of a text, each in brackets: marks behind a backslash, strings in quotes, identifiers as they are.
std::string lexSheet(const std::string &text) {
    CSSLexer lexer;
    MemoryInputStream stream("sheet", text);
    lexer.setInputStream(&stream);
    std::string tokens;
    for (const Token *token = lexer.next(); !Token::isEOF(token); token = lexer.next())
        tokens += "[" + describe(*token) + "]";
    return tokens;
}

struct CommaOff {
    CommaOff() { lexer.findToken(CSSLexer::COMMA)->setEnabled(false); }
    ~CommaOff() { lexer.findToken(CSSLexer::COMMA)->setEnabled(true); }
    OpenCSSLexer lexer;
};

} // namespace

TEST(CSSLexer, KnowsSixMarksByIdAndText) {
    const OpenCSSLexer lexer;
    const char *const texts[] = {"{", "}", ",", ":", ";", "@"};
    for (unsigned int id = 0; id < 6; ++id) {
        const Token *token = lexer.findToken(id);
        ASSERT_NE(token, nullptr) << id;
        EXPECT_STREQ(token->getText(), texts[id]);
        EXPECT_EQ(token->getId(), id);
        EXPECT_TRUE(token->isEnabled());
        EXPECT_EQ(lexer.findToken(texts[id], true), token);
    }
    EXPECT_EQ(lexer.findToken(CSSLexer::INVALID), nullptr);
    EXPECT_EQ(lexer.findToken(CSSLexer::STRING), nullptr);
    EXPECT_EQ(lexer.findToken(CSSLexer::IDENTIFIER), nullptr);
    EXPECT_EQ(lexer.findToken(9u), nullptr);
}

TEST(CSSLexer, SharesItsTokensWithEveryOther) {
    OpenCSSLexer first;
    OpenCSSLexer second;
    for (unsigned int id = 0; id < 6; ++id)
        EXPECT_EQ(first.findToken(id), second.findToken(id));
    EXPECT_EQ(first.text2Token("word"), second.text2Token("other"));
    EXPECT_EQ(first.text2Token("'string'"), second.text2Token("\"other\""));
}

TEST(CSSLexer, CutsASheet) {
    EXPECT_EQ(lexSheet("@define{$a:1px \"x y\";}\na.b,#c:hover{-n-anchor:top-left;}"),
              "[\\@][define][\\{][$a][\\:][1px][\"x y\"][\\;][\\}][a.b][\\,][#c][\\:][hover][\\{][-n-anchor][\\:]"
              "[top-left][\\;][\\}]");
}

TEST(CSSLexer, LetsAWordHoldWhatIsNoMark) {
    EXPECT_EQ(lexSheet(".#*-_%$()/09azAZ!<=>?[]^`|~+&\\ \xC3\xA9\x7F"),
              "[.#*-_%$()/09azAZ!<=>?[]^`|~+&\\][\xC3\xA9\x7F]");
}

TEST(CSSLexer, MakesCommasPartOfWordsWhileTheyAreOff) {
    EXPECT_EQ(lexSheet("rgb(1,2,3)"), "[rgb(1][\\,][2][\\,][3)]");
    const CommaOff off;
    EXPECT_EQ(lexSheet("rgb(1,2,3) , ;a,}"), "[rgb(1,2,3)][,][\\;][a,][\\}]");
}

TEST(CSSLexer, IgnoresSpaceAndEverythingBelowIt) {
    const OpenCSSLexer lexer;
    for (int character = 0; character < 256; ++character)
        EXPECT_EQ(lexer.isIgnorable(static_cast<char>(character)), character <= ' ') << character;
    EXPECT_EQ(lexSheet(std::string("a\tb\rc\nd\x01"
                                   "e\x1F"
                                   "f\0g",
                                   13)),
              "[a][b][c][d][e][f][g]");
}

TEST(CSSLexer, EndsALineWithALineFeedAlone) {
    const OpenCSSLexer lexer;
    EXPECT_TRUE(lexer.isNewLine("\nx"));
    EXPECT_FALSE(lexer.isNewLine("\r\n"));
    EXPECT_FALSE(lexer.isNewLine("x\n"));
    EXPECT_FALSE(lexer.isNewLine(""));
}

TEST(CSSLexer, KnowsOneKindOfComment) {
    const OpenCSSLexer lexer;
    EXPECT_EQ(lexer.isSingleLineComment("// x"), 0);
    EXPECT_EQ(lexer.isSingleLineComment("/* x"), 0);
    EXPECT_EQ(lexer.isMultiLineComment("/* x"), 2);
    EXPECT_EQ(lexer.isMultiLineComment("/x*"), 0);
    EXPECT_EQ(lexer.isMultiLineComment("/"), 0);
    EXPECT_EQ(lexer.isMultiLineComment("*/"), 0);
    EXPECT_EQ(lexer.isEndMultiLineComment("*/ x"), 2);
    EXPECT_EQ(lexer.isEndMultiLineComment("*x/"), 0);
    EXPECT_EQ(lexer.isEndMultiLineComment("*"), 0);
    EXPECT_STREQ(lexer.getMultilineComment(), "/*");
    EXPECT_STREQ(lexer.getEndMultilineComment(), "*/");
    EXPECT_EQ(lexer.getEndMultiLineCommentLength(), 2);
}

TEST(CSSLexer, SkipsCommentsBetweenWordsAndLeavesThemInsideWords) {
    EXPECT_EQ(lexSheet("/**/a /* { ; } ' \" */ b{/***/}/* * / */ c"), "[a][b][\\{][\\}][c]");
    EXPECT_EQ(lexSheet("a/*b*/c // d"), "[a/*b*/c][//][d]");
    EXPECT_EQ(lexSheet("a/*;*/c"), "[a/*][\\;][*/c]");
}

TEST(CSSLexer, RunsACommentThatIsNotClosedToTheEnd) {
    test::LogCapture log;
    EXPECT_EQ(lexSheet("a\n /* b } ' *"), "[a]");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Comment without '*/'. At position 2:2");
}

TEST(CSSLexer, BeginsAStringAtEitherQuote) {
    const OpenCSSLexer lexer;
    EXPECT_TRUE(lexer.isString("'a"));
    EXPECT_TRUE(lexer.isString("\"a"));
    EXPECT_FALSE(lexer.isString("a'"));
    EXPECT_FALSE(lexer.isString(""));
    EXPECT_EQ(lexSheet("'a \"b\"' \"it's\" '' 'two\nlines' '/* no comment */' '{,:;@}'"),
              "[\"a \"b\"\"][\"it's\"][\"\"][\"two\nlines\"][\"/* no comment */\"][\"{,:;@}\"]");
}

TEST(CSSLexer, KnowsNoEscapes) {
    EXPECT_EQ(lexSheet("'a\\'b'"), "[\"a\\\"][b']");
    EXPECT_EQ(lexSheet("'\\n'"), "[\"\\n\"]");
}

TEST(CSSLexer, LeavesAQuoteInsideAWordToTheWord) {
    EXPECT_EQ(lexSheet("a'b c' d\"e\"f"), "[a'b][c'][d\"e\"f]");
}

TEST(CSSLexer, TakesAStringThatIsNotClosedForAWordToTheEnd) {
    EXPECT_EQ(lexSheet("'a { b;\n}"), "['a { b;\n}]");
    EXPECT_EQ(lexSheet("\"a'"), "[\"a']");
    EXPECT_EQ(lexSheet("'"), "[']");
}

TEST(CSSLexer, MakesAnIdentifierOfAnyTextButAQuotedOne) {
    OpenCSSLexer lexer;
    for (const char *text : {"", "a", "'", "\"", "'a", "a'", "'a\"", "\"a'", "a'b'"}) {
        const Token *token = lexer.text2Token(text);
        EXPECT_EQ(token->getId(), CSSLexer::IDENTIFIER) << text;
        EXPECT_EQ(token->getText(), text) << "the text is not copied";
    }
}

TEST(CSSLexer, GivesAStringsContentBesideItsText) {
    OpenCSSLexer lexer;
    const char text[] = "'content'";
    const Token *token = lexer.text2Token(text);
    EXPECT_EQ(token->getId(), CSSLexer::STRING);
    EXPECT_STREQ(token->getText(), "<!string!>");
    EXPECT_STREQ(token->getString(), "content");
    EXPECT_STREQ(lexer.text2Token("\"\"")->getString(), "");
    EXPECT_STREQ(lexer.text2Token("'''")->getString(), "'");
}

TEST(CSSLexer, KeepsTheMemoryOfTheLongestString) {
    OpenCSSLexer lexer;
    const std::string longest(5000, 'x');
    const char *memory = lexer.text2Token(("'" + longest + "'").c_str())->getString();
    EXPECT_EQ(memory, longest);
    for (const std::string &shorter : {std::string("a"), std::string(4999, 'y'), std::string(5000, 'z')}) {
        const char *content = lexer.text2Token(("\"" + shorter + "\"").c_str())->getString();
        EXPECT_EQ(content, memory);
        EXPECT_EQ(content, shorter);
    }
    const std::string longer(20000, 'w');
    EXPECT_EQ(OpenCSSLexer().text2Token(("'" + longer + "'").c_str())->getString(), longer);
}

TEST(CSSLexer, TellsLinesAndColumnsFromOne) {
    CSSLexer lexer;
    MemoryInputStream stream("sheet", "a {\n  b: 'x\ny';\n\t}");
    lexer.setInputStream(&stream);
    std::string places;
    const Token *token = nullptr;
    do {
        token = lexer.next();
        places += std::to_string(token->getLine()) + ":" + std::to_string(token->getColumn()) + " ";
    } while (!Token::isEOF(token));
    EXPECT_EQ(places, "1:1 1:3 2:3 2:4 2:6 3:3 4:2 4:3 ");
}

TEST(CSSLexer, ReadsWordsAndStringsOfAMegabyte) {
    const std::string word(1u << 20, 'w');
    EXPECT_EQ(lexSheet(word + ";'" + word + "'" + "}"), "[" + word + "][\\;][\"" + word + "\"][\\}]");
}
