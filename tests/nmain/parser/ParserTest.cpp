#include "nmain/parser/Parser.h"

#include "nmain/parser/LexerException.h"
#include "nmain/parser/SheetLexer.h"
#include "nmain/stream/InputStream.h"

#include <gtest/gtest.h>

#include <memory>

using namespace nurel::parser;
using nurel::stream::MemoryInputStream;
using test::SheetLexer;

namespace {

/// Counts itself, so that a test sees when it is deleted.
template <class Base>
class Counted : public Base {
public:
    template <class... Arguments>
    explicit Counted(int &count, Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)...), mCount(count) {
        ++mCount;
    }
    ~Counted() override { --mCount; }

private:
    int &mCount;
};

class SheetParser : public Parser {
public:
    explicit SheetParser(const char *text) : Parser(new SheetLexer, true) {
        setInputStream(new MemoryInputStream("sheet", text), true);
    }
};

std::string getMessage(const SheetParser &parser, const Token *token, unsigned id) {
    try {
        parser.check(token, id);
    } catch (const LexerException &error) {
        return error.what();
    }
    return "passed";
}

} // namespace

TEST(Parser, NeedsALexer) {
    EXPECT_THROW(Parser(nullptr, true), core::IllegalArgumentException);
}

TEST(Parser, DeletesTheLexerThatItOwns) {
    int count = 0;
    { const Parser parser(new Counted<SheetLexer>(count), true); }
    EXPECT_EQ(count, 0);
    {
        Counted<SheetLexer> lexer(count);
        { const Parser parser(&lexer, false); }
        EXPECT_EQ(count, 1);
    }
}

TEST(Parser, DeletesAnOwnedStreamWithTheNextOneAndWithItself) {
    int count = 0;
    {
        Parser parser(new SheetLexer, true);
        Counted<MemoryInputStream> borrowed(count, "borrowed", std::string("b"));
        parser.setInputStream(new Counted<MemoryInputStream>(count, "first", std::string("a")), true);
        EXPECT_EQ(count, 2);
        parser.setInputStream(&borrowed, false);
        EXPECT_EQ(count, 1);
        EXPECT_STREQ(parser.next()->getText(), "b");
        auto *owned = new Counted<MemoryInputStream>(count, "second", std::string("c"));
        parser.setInputStream(owned, true);
        parser.setInputStream(owned, true);
        EXPECT_STREQ(parser.next()->getText(), "c");
        EXPECT_EQ(count, 2);
    }
    EXPECT_EQ(count, 0);
}

TEST(Parser, GivesTokensBackLastFirst) {
    SheetParser parser("{ } word");
    Token *open = parser.next();
    Token *close = parser.next();
    parser.push(close);
    parser.push(open);
    parser.push(nullptr);
    EXPECT_EQ(parser.next(), open);
    EXPECT_EQ(parser.next(), close);
    EXPECT_STREQ(parser.next()->getText(), "word");
}

TEST(Parser, GivesTheEndOfInputBackToo) {
    SheetParser parser("");
    Token *end = parser.next();
    EXPECT_TRUE(Token::isEOF(end));
    parser.push(end);
    EXPECT_EQ(parser.next(), end);
    EXPECT_TRUE(Token::isEOF(parser.next()));
}

TEST(Parser, ForgetsGivenBackTokensWithANewStream) {
    SheetParser parser("{");
    parser.push(parser.next());
    parser.setInputStream(new MemoryInputStream("sheet", "}"), true);
    EXPECT_EQ(parser.next()->getId(), SheetLexer::CLOSE);
}

TEST(Parser, ChecksTheIdOfAToken) {
    SheetParser parser("a\n  } 'b'");
    const Token *word = parser.next();
    EXPECT_EQ(getMessage(parser, word, SheetLexer::WORD), "passed");
    EXPECT_EQ(getMessage(parser, word, SheetLexer::OPEN), "Syntax error: '{' expected, 'a' found. At position 1:1");
    const Token *close = parser.next();
    EXPECT_EQ(getMessage(parser, close, SheetLexer::WORD), "Syntax error: unexpected '}'. At position 2:3");
    EXPECT_EQ(getMessage(parser, parser.next(), SheetLexer::SEMICOLON),
              "Syntax error: ';' expected, '<!string!>' found. At position 2:5");
    EXPECT_EQ(getMessage(parser, parser.next(), SheetLexer::SEMICOLON),
              "Syntax error: ';' expected, '<!EOF!>' found. At position 2:8");
    EXPECT_NE(getMessage(parser, nullptr, SheetLexer::SEMICOLON), "passed");
}

struct Section {
    const char *name;
    const char *text;
    unsigned open;
    unsigned close;
    int depth;
    const char *rest; // the first token behind the section
};

void PrintTo(const Section &section, std::ostream *out) {
    *out << section.name;
}

class ParserSection : public testing::TestWithParam<Section> {};

const Section SECTIONS[] = {
    {"OneBlock", "screen { a } rest", 0, 1, 0, "rest"},
    {"NestedBlocks", "screen { a { w: 1; } b { } } rest", 0, 1, 0, "rest"},
    {"OpenBlock", "a } rest", 0, 1, 1, "rest"},
    {"TwoOpenBlocks", "a } b } rest", 0, 1, 2, "rest"},
    {"CloseBeforeOpen", "a } rest", 0, 1, 0, "rest"},
    {"ToTheSemicolon", "1px { x } 2px; rest", 9, 4, 1, "rest"},
    {"MissingClose", "{ { a }", 0, 1, 0, "<!EOF!>"},
    {"Empty", "", 0, 1, 0, "<!EOF!>"},
};

TEST_P(ParserSection, IsSkipped) {
    SheetParser parser(GetParam().text);
    parser.skipSection(GetParam().open, GetParam().close, GetParam().depth);
    EXPECT_STREQ(parser.next()->getText(), GetParam().rest);
}

INSTANTIATE_TEST_SUITE_P(Sections, ParserSection, testing::ValuesIn(SECTIONS),
                         [](const auto &row) { return row.param.name; });

TEST(Parser, SkipsASectionNestedWithoutLimit) {
    SheetParser parser((std::string(100000, '{') + std::string(100000, '}') + " rest").c_str());
    parser.skipSection(SheetLexer::OPEN, SheetLexer::CLOSE, 0);
    EXPECT_STREQ(parser.next()->getText(), "rest");
}

TEST(Parser, SkipsGivenBackTokensFirst) {
    SheetParser parser("{ a } rest");
    parser.push(parser.next());
    parser.skipSection(SheetLexer::OPEN, SheetLexer::CLOSE, 0);
    EXPECT_STREQ(parser.next()->getText(), "rest");
}

TEST(LexerException, KeepsItsClassInACopy) {
    const LexerException error("Syntax error at %d:%d", 1, 2);
    const std::unique_ptr<core::Exception> copy(error.clone());
    EXPECT_STREQ(copy->what(), "Syntax error at 1:2");
    EXPECT_THROW(copy->raise(), LexerException);
}
