#include "nmain/parser/Token.h"

#include <gtest/gtest.h>

using nurel::parser::Token;

TEST(Token, IsEnabledAndWithoutContentByDefault) {
    const Token token(3, ":");
    EXPECT_EQ(token.getId(), 3u);
    EXPECT_STREQ(token.getText(), ":");
    EXPECT_TRUE(token.isEnabled());
    EXPECT_EQ(token.getString(), nullptr);
    EXPECT_EQ(token.getLine(), 0);
    EXPECT_EQ(token.getColumn(), 0);
}

TEST(Token, TakesItsEnabledFlagOrItsContent) {
    char content[] = "content";
    EXPECT_FALSE(Token(8, "<!id!>", false).isEnabled());
    EXPECT_TRUE(Token(8, "<!id!>", true).isEnabled());
    EXPECT_EQ(Token(7, "<!string!>", content).getString(), content);
    EXPECT_TRUE(Token(7, "<!string!>", content).isEnabled());
    EXPECT_EQ(Token(7, "<!string!>", nullptr).getString(), nullptr);
}

TEST(Token, TakesItsTextWithoutCopyingIt) {
    char text[] = "before";
    Token token(8, "<!id!>", false);
    token.setText(text);
    text[0] = 'B';
    EXPECT_STREQ(token.getText(), "Before");
}

TEST(Token, TakesNullForAnEmptyText) {
    Token token(1, nullptr);
    EXPECT_STREQ(token.getText(), "");
    token.setText(nullptr);
    EXPECT_STREQ(token.getText(), "");
}

TEST(Token, ReadsATextThatBeginsWithNullAsEmpty) {
    EXPECT_STREQ(Token(6, "\0<!INVALID_TOKEN!>").getText(), "");
}

TEST(Token, KnowsTheEndOfInputByItsId) {
    const Token end(Token::END_OF_INPUT, "end");
    const Token other(9, "");
    EXPECT_TRUE(Token::isEOF(&end));
    EXPECT_FALSE(Token::isEOF(&other));
    EXPECT_TRUE(Token::isEOF(nullptr));
}
