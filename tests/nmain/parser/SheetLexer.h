#pragma once

#include "nmain/parser/Lexer.h"

#include <cstring>
#include <string>

namespace test {

/// A small dialect in the way of style sheets: braces, comma, colon, semicolon and at sign, comments between "/*" and
/// "*/", strings in either quote, everything else words.
class SheetLexer : public nurel::parser::Lexer {
public:
    using Token = nurel::parser::Token;
    enum Id { OPEN, CLOSE, COMMA, COLON, SEMICOLON, AT, STRING = 7, WORD = 8 };

    explicit SheetLexer(unsigned bufferSize = 1024) : Lexer(2, bufferSize) {
        for (Token &token : mMarks)
            addToken(&token);
    }

    using Lexer::findToken;

protected:
    CommentGuess isMultiLineComment(const char *text) const override {
        return std::strncmp(text, "/*", 2) == 0 ? CG_COMMENT : CG_NONE;
    }
    CommentGuess isEndMultiLineComment(const char *text) const override {
        return std::strncmp(text, "*/", 2) == 0 ? CG_COMMENT : CG_NONE;
    }
    const char *getMultilineComment() const override { return "/*"; }
    int getEndMultiLineCommentLength() const override { return 2; }
    const char *getEndMultilineComment() const override { return "*/"; }

    Token *text2Token(const char *text) override {
        const std::size_t length = std::strlen(text);
        if (length < 2 || !isString(text) || text[length - 1] != text[0]) {
            mWord.setText(text);
            return &mWord;
        }
        mContent.assign(text + 1, length - 2);
        mString.setString(mContent.data());
        return &mString;
    }

private:
    Token mMarks[6] = {{OPEN, "{"}, {CLOSE, "}"}, {COMMA, ","}, {COLON, ":"}, {SEMICOLON, ";"}, {AT, "@"}};
    Token mString{STRING, "<!string!>", static_cast<char *>(nullptr)};
    Token mWord{WORD, "<!id!>", false};
    std::string mContent;
};

} // namespace test
