#include "nmain/parser/Lexer.h"

#include "foundation/core/Exception.h"
#include "nmain/parser/SheetLexer.h"
#include "nmain/stream/InputStream.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

using nurel::parser::Token;
using nurel::stream::MemoryInputStream;
using test::SheetLexer;

namespace {

std::string describe(const Token &token) {
    if (Token::isEOF(&token))
        return "end";
    return token.getString() && token.getId() == SheetLexer::STRING ? std::string("\"") + token.getString() + "\""
                                                                    : token.getText();
}

/// The tokens of a text, each in brackets.
std::string lex(const std::string &text, unsigned bufferSize = 1024, bool comma = true) {
    SheetLexer lexer(bufferSize);
    lexer.findToken(SheetLexer::COMMA)->setEnabled(comma);
    MemoryInputStream stream("sheet", text);
    lexer.setInputStream(&stream);
    std::string tokens;
    for (const Token *token = lexer.next(); !Token::isEOF(token); token = lexer.next())
        tokens += "[" + describe(*token) + "]";
    return tokens;
}

/// A dialect with marks of several lengths and comments to the end of the line.
class MarkLexer : public nurel::parser::Lexer {
public:
    MarkLexer() : Lexer(1, 4) {
        for (Token &token : mMarks)
            addToken(&token);
    }
    using Lexer::findToken;
    using Lexer::isIdentifier;

    Token &getMark(unsigned index) { return mMarks[index]; }

protected:
    CommentGuess isSingleLineComment(const char *text) const override { return *text == '#' ? CG_COMMENT : CG_NONE; }
    Token *text2Token(const char *text) override {
        mWord.setText(text);
        return &mWord;
    }

private:
    Token mMarks[4] = {{0, "<"}, {1, "<<="}, {2, "<<"}, {3, "<<<<<<<<"}};
    Token mWord{8, "", false};
};

/// Fails on the second read.
class FailingStream : public nurel::stream::InputStream {
public:
    std::size_t read(void *buffer, std::size_t) override {
        if (mRead)
            throw core::IOException("Cannot read file broken.css");
        mRead = true;
        *static_cast<char *>(buffer) = 'a';
        return 1;
    }
    const char *getName() const override { return "broken.css"; }

private:
    bool mRead = false;
};

} // namespace

TEST(Lexer, GivesTheEndOfInputForNoStreamAndForAnEmptyOne) {
    SheetLexer lexer;
    EXPECT_TRUE(Token::isEOF(lexer.next()));
    MemoryInputStream stream("sheet", "");
    lexer.setInputStream(&stream);
    EXPECT_TRUE(Token::isEOF(lexer.next()));
    EXPECT_TRUE(Token::isEOF(lexer.next()));
    lexer.setInputStream(nullptr);
    EXPECT_TRUE(Token::isEOF(lexer.next()));
}

TEST(Lexer, CutsMarksWordsAndStrings) {
    EXPECT_EQ(lex("@define{$a:1px;}\na.b,#c:hover{w:'x y' \"z\";}"),
              "[@][define][{][$a][:][1px][;][}][a.b][,][#c][:][hover][{][w][:][\"x y\"][\"z\"][;][}]");
}

TEST(Lexer, RunsAWordToTheNextWhiteSpaceOrMark) {
    EXPECT_EQ(lex(".a#b*-_%$()/9 b\tc\rd\ne\x01"
                  "f"),
              "[.a#b*-_%$()/9][b][c][d][e][f]");
}

TEST(Lexer, LeavesAQuoteInsideAWordToTheWord) {
    EXPECT_EQ(lex("url('a b')"), "[url('a][b')]");
}

TEST(Lexer, LeavesACommentInsideAWordToTheWord) {
    EXPECT_EQ(lex("a/*b*/c d/* e */f"), "[a/*b*/c][d/*][e][*/f]");
    EXPECT_EQ(lex("a/*{b}*/c"), "[a/*][{][b][}][*/c]");
}

TEST(Lexer, ReadsPastADisabledMark) {
    EXPECT_EQ(lex("rgb(1,2,3);,x", 1024, false), "[rgb(1,2,3)][;][,x]");
    EXPECT_EQ(lex("rgb(1,2,3);,x", 1024, true), "[rgb(1][,][2][,][3)][;][,][x]");
}

TEST(Lexer, HonoursAMarkThatIsSwitchedBetweenTokens) {
    SheetLexer lexer;
    MemoryInputStream stream("sheet", "a,b:c,d;e,f");
    lexer.setInputStream(&stream);
    std::string tokens;
    for (const Token *token = lexer.next(); !Token::isEOF(token); token = lexer.next()) {
        tokens += "[" + describe(*token) + "]";
        if (token->getId() == SheetLexer::COLON || token->getId() == SheetLexer::SEMICOLON)
            lexer.findToken(SheetLexer::COMMA)->setEnabled(token->getId() == SheetLexer::SEMICOLON);
    }
    EXPECT_EQ(tokens, "[a][,][b][:][c,d][;][e][,][f]");
}

TEST(Lexer, SkipsComments) {
    EXPECT_EQ(lex("/**/a /* b */c /*/ d /*/ e/f*/ g/*"), "[a][c][e/f*/][g/*]");
    EXPECT_EQ(lex("{/**/}/***/;/* * / */:/* **/"), "[{][}][;][:]");
    EXPECT_EQ(lex("/* {};:'\" */"), "");
    EXPECT_EQ(lex("'/* no comment */'"), "[\"/* no comment */\"]");
}

TEST(Lexer, WarnsOfACommentWithoutAnEnd) {
    test::LogCapture log;
    EXPECT_EQ(lex("a\n b /* c"), "[a][b]");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Comment without '*/'. At position 2:4");
    EXPECT_EQ(lex("/*/"), "");
    EXPECT_EQ(log.takeOne(logging::Level::WARN), "Comment without '*/'. At position 1:1");
}

TEST(Lexer, EndsAStringAtItsOwnQuoteOrAtTheEndOfInput) {
    EXPECT_EQ(lex("'a\"b'\"c'd\""), "[\"a\"b\"][\"c'd\"]");
    EXPECT_EQ(lex("''x"), "[\"\"][x]");
    EXPECT_EQ(lex("'line\nbreak'"), "[\"line\nbreak\"]");
    EXPECT_EQ(lex("'open {;"), "['open {;]");
    EXPECT_EQ(lex("'"), "[']");
}

TEST(Lexer, ReadsTokensOfAnyLength) {
    const std::string word(100000, 'w');
    const std::string content(50000, 's');
    EXPECT_EQ(lex(word + ";'" + content + "'", 16), "[" + word + "][;][\"" + content + "\"]");
}

TEST(Lexer, CutsTheSameWhateverTheBufferHolds) {
    const std::string text =
        "\xEF\xBB\xBF@define { $a: 'x y'; }\n/* ** / */ a.b , c/**/ : hover { w : url(x,y) /* z */ ; }";
    const std::string whole = lex(text);
    EXPECT_NE(whole, "");
    for (unsigned size = 0; size < 40; ++size)
        EXPECT_EQ(lex(text, size), whole) << size;
}

TEST(Lexer, TellsLinesAndColumnsInCharacters) {
    SheetLexer lexer(3);
    MemoryInputStream stream("sheet", "\xEF\xBB\xBF{ \xC3\xA9\xE4\xBD\xA0 b\r\n\t'x\ny' c /* \n */ d");
    lexer.setInputStream(&stream);
    std::string places;
    const Token *token;
    do {
        token = lexer.next();
        places += std::to_string(token->getLine()) + ":" + std::to_string(token->getColumn()) + " ";
    } while (!Token::isEOF(token));
    EXPECT_EQ(places, "1:1 1:3 1:6 2:2 3:4 4:5 4:6 ");
}

TEST(Lexer, StartsAgainWithEachStream) {
    SheetLexer lexer;
    MemoryInputStream first("first", "\n\n a b");
    lexer.setInputStream(&first);
    lexer.next();
    MemoryInputStream second("second", "\xEF\xBB\xBFx");
    lexer.setInputStream(&second);
    const Token *token = lexer.next();
    EXPECT_STREQ(token->getText(), "x");
    EXPECT_EQ(token->getLine(), 1);
    EXPECT_EQ(token->getColumn(), 1);
    EXPECT_TRUE(Token::isEOF(lexer.next()));
}

TEST(Lexer, SkipsNullBytesAsControlCharacters) {
    EXPECT_EQ(lex(std::string("a\0b\0", 4)), "[a][b]");
}

TEST(Lexer, LetsTheStreamsErrorPass) {
    SheetLexer lexer;
    FailingStream stream;
    lexer.setInputStream(&stream);
    EXPECT_THROW(lexer.next(), core::IOException);
}

TEST(Lexer, FindsAMarkByItsIdEnabledOrNot) {
    SheetLexer lexer;
    Token *comma = lexer.findToken(SheetLexer::COMMA);
    ASSERT_NE(comma, nullptr);
    EXPECT_STREQ(comma->getText(), ",");
    comma->setEnabled(false);
    EXPECT_EQ(lexer.findToken(SheetLexer::COMMA), comma);
    EXPECT_EQ(lexer.findToken(SheetLexer::WORD), nullptr);
    EXPECT_EQ(lexer.findToken(Token::END_OF_INPUT), nullptr);
}

TEST(Lexer, TakesTheLongestEnabledMark) {
    MarkLexer lexer;
    EXPECT_EQ(lexer.findToken("<<=x", false), &lexer.getMark(1));
    EXPECT_EQ(lexer.findToken("<<x", false), &lexer.getMark(2));
    EXPECT_EQ(lexer.findToken("<", false), &lexer.getMark(0));
    EXPECT_EQ(lexer.findToken("x<", false), nullptr);
    lexer.getMark(1).setEnabled(false);
    EXPECT_EQ(lexer.findToken("<<=x", false), &lexer.getMark(2));
}

TEST(Lexer, FindsAMarkByItsWholeText) {
    MarkLexer lexer;
    EXPECT_EQ(lexer.findToken("<<", true), &lexer.getMark(2));
    EXPECT_EQ(lexer.findToken("<<=x", true), nullptr);
    EXPECT_EQ(lexer.findToken("", true), nullptr);
    lexer.getMark(2).setEnabled(false);
    EXPECT_EQ(lexer.findToken("<<", true), nullptr);
}

TEST(Lexer, LooksAsFarAheadAsItsLongestMark) {
    MarkLexer lexer;
    MemoryInputStream stream("marks", "a<<<<<<<<<b");
    lexer.setInputStream(&stream);
    EXPECT_STREQ(lexer.next()->getText(), "a");
    EXPECT_EQ(lexer.next()->getId(), 3u);
    EXPECT_EQ(lexer.next()->getId(), 0u);
    EXPECT_STREQ(lexer.next()->getText(), "b");
}

TEST(Lexer, SkipsCommentsToTheEndOfTheLine) {
    MarkLexer lexer;
    MemoryInputStream stream("marks", "#\na#b <#c\n#d\n#\n e # f");
    lexer.setInputStream(&stream);
    EXPECT_STREQ(lexer.next()->getText(), "a#b");
    EXPECT_EQ(lexer.next()->getId(), 0u);
    const Token *token = lexer.next();
    EXPECT_STREQ(token->getText(), "e");
    EXPECT_EQ(token->getLine(), 5);
    EXPECT_TRUE(Token::isEOF(lexer.next()));
}

TEST(Lexer, EndsAnIdentifierAtWhiteSpaceMarksAndTheTerminator) {
    const MarkLexer lexer;
    EXPECT_TRUE(lexer.isIdentifier("a"));
    EXPECT_TRUE(lexer.isIdentifier("'"));
    EXPECT_FALSE(lexer.isIdentifier("<a"));
    EXPECT_FALSE(lexer.isIdentifier(" a"));
    EXPECT_FALSE(lexer.isIdentifier("\n"));
    EXPECT_FALSE(lexer.isIdentifier(""));
}

TEST(Lexer, IgnoresMarksWithoutText) {
    MarkLexer lexer;
    Token empty(5, "");
    lexer.addToken(&empty);
    lexer.addToken(nullptr);
    EXPECT_EQ(lexer.findToken(5u), nullptr);
}
